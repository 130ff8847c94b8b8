#include "platform/sim_zustand.h"

#include <QList>

namespace planor {

QByteArray SimZustandText(const SimZustand& zustand)
{
    QByteArray text = "; Planor-Simulator: Zustand\r\n";
    for (const SimZustand::Modul& m : zustand.module) {
        text += "modul " + QByteArray::number(m.artikel) + ' ' + QByteArray::number(m.adresse) + "\r\n";
        for (const auto& [nummer, wert] : m.werte)
            if (wert != 0)
                text += "lncv " + QByteArray::number(nummer) + ' ' + QByteArray::number(wert) + "\r\n";
    }
    for (const auto& [adresse, stellung] : zustand.weichen)
        text += "weiche " + QByteArray::number(adresse) + ' ' + QByteArray::number(stellung) + "\r\n";
    return text;
}

namespace {

bool zahl(const QByteArray& text, long long unten, long long oben, long long& wert)
{
    bool ok = false;
    wert = text.toLongLong(&ok);
    return ok && wert >= unten && wert <= oben;
}

}  // namespace

bool SimZustandLesen(const QByteArray& text, SimZustand& zustand, QString& fehler)
{
    zustand = {};
    QByteArray normal = text;
    normal.replace("\r\n", "\n").replace('\r', '\n');
    int zeilenNummer = 0;
    for (const QByteArray& roh : normal.split('\n')) {
        ++zeilenNummer;
        const QByteArray zeile = roh.trimmed();
        if (zeile.isEmpty() || zeile.startsWith(';'))
            continue;
        const QList<QByteArray> teile = zeile.simplified().split(' ');
        long long a = 0, b = 0;
        const bool paar = teile.size() == 3;
        bool ok = false;
        if (paar && teile[0] == "modul") {
            ok = zahl(teile[1], 1, 99999, a) && zahl(teile[2], 0, 65535, b);
            if (ok)
                zustand.module.push_back({Long(a), Long(b), {}});
        } else if (paar && teile[0] == "lncv" && !zustand.module.empty()) {
            ok = zahl(teile[1], 0, 459, a) && zahl(teile[2], 0, 65535, b);
            if (ok)
                zustand.module.back().werte[int(a)] = quint16(b);
        } else if (paar && teile[0] == "weiche") {
            ok = zahl(teile[1], 1, 2048, a) && zahl(teile[2], 0, 1, b);
            if (ok)
                zustand.weichen[Long(a)] = int(b);
        }
        if (!ok) {
            fehler = QStringLiteral("Zeile %1 der Zustandsdatei ist unverständlich: %2")
                         .arg(zeilenNummer)
                         .arg(QString::fromLatin1(zeile));
            return false;
        }
    }
    return true;
}

}  // namespace planor
