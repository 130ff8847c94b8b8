#include "loconet/ohne_schnittstelle.h"

#include "core/benutzer.h"

namespace planor {

void OhneSchnittstelle::open_com(Long& err)
{
    err = 8002;
    benutzer_.meldung(QStringLiteral("ComPort öffnen"),
                      QStringLiteral("ComPort ") + QString::number(comPort_)
                          + QStringLiteral(" kann nicht geöffnet werden:\n"
                                           "Diese Programmversion hat noch keine Verbindung zum LocoNet."),
                      Symbol::Kritisch);
}

}  // namespace planor
