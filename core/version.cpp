#include "core/version.h"

#include "planor_version.h"

namespace planor {

QString Version()
{
    return QStringLiteral("%1.%2.%3").arg(VersionMajor).arg(VersionMinor).arg(VersionRevision);
}

QString VersionsInfo()
{
    return QStringLiteral("Version ") + Version() + QStringLiteral(" vom ") + QString::fromUtf8(BuildDatum);
}

}  // namespace planor
