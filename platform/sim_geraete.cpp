#include "platform/sim_geraete.h"

#include "loconet/nachricht.h"
#include "platform/sim_bus.h"
#include "platform/uhr.h"

#include <QFile>
#include <QSaveFile>

namespace planor {

namespace {

char b(long long wert) { return static_cast<char>(wert & 0xFF); }

quint8 at(const QByteArray& m, int i) { return quint8(m.at(i)); }

bool pruefsummeStimmt(const QByteArray& m)
{
    return m.size() >= 2 && Pruefsumme(m.left(m.size() - 1)) == at(m, m.size() - 1);
}

// Accessory address of OPC_SW_REQ and OPC_SW_STATE (Read_Mag, SendMag).
Long weichenAdresse(const QByteArray& m) { return Long(at(m, 2) & 15) * 128 + at(m, 1) + 1; }

constexpr double SpeicherVerzoegerung = 0.5;

}  // namespace

QByteArray ZugMeldung(Long empfaenger, Long lok, int kategorie, int richtung)
{
    // Bit 6 of b3 "from S1 to S2", bits 6 and 5 "from S2 to S1";
    // bit 5 alone would make it a status message.
    const int richtungsBits = richtung == 1 ? 0x40 : richtung == 2 ? 0x60 : 0;
    return mitPruefsumme(QByteArray()
                             .append(b(OPC_NAVIK))
                             .append(b(0x08))
                             .append(b((kategorie - 1) & 3))
                             .append(b(((empfaenger / 128) & 31) | richtungsBits))
                             .append(b(empfaenger & 127))
                             .append(b((lok / 128) & 127))
                             .append(b(lok & 127)));
}

SimGeraete::SimGeraete(SimBus& bus, QObject* parent) : QObject(parent), bus_(&bus)
{
    teilnehmer_ = bus.anschliessen([this](const QByteArray& m) { nachricht(m); });
    connect(&bus, &SimBus::textZeile, this, &SimGeraete::textZeile);
}

SimGeraete::~SimGeraete()
{
    if (bus_)
        bus_->abtrennen(teilnehmer_);
    if (ungespeichert_ && !zustandsdatei_.isEmpty()) {
        QString fehler;
        zustandSpeichern(fehler);
    }
}

SimModul& SimGeraete::modulHinzufuegen(Long artikel, Long adresse, int version)
{
    for (auto& m : module_)
        if (m->artikel() == artikel && m->anfangsAdresse() == adresse)
            return *m;
    module_.push_back(std::make_unique<SimModul>(artikel, adresse, version));
    return *module_.back();
}

SimModul* SimGeraete::modul(Long artikel, Long adresse) const
{
    for (const auto& m : module_)
        if (m->artikel() == artikel && m->adresse() == adresse)
            return m.get();
    return nullptr;
}

int SimGeraete::weiche(Long adresse) const
{
    const auto w = weichen_.find(adresse);
    return w == weichen_.end() ? 1 : w->second;
}

void SimGeraete::setzeWeiche(Long adresse, int stellung)
{
    if (weiche(adresse) == stellung && weichen_.count(adresse))
        return;
    weichen_[adresse] = stellung;
    aenderung();
}

void SimGeraete::rueckmelden(Long adresse, int pegel)
{
    if (bus_)
        bus_->melden(mitPruefsumme(SendRM_Nachricht(adresse, pegel)));
}

int SimGeraete::rueckmelder(Long adresse) const
{
    const auto r = rueckmelder_.find(adresse);
    return r == rueckmelder_.end() ? -1 : r->second;
}

void SimGeraete::zugMelden(Long empfaenger, Long lok, int kategorie, int richtung)
{
    const QByteArray m = ZugMeldung(empfaenger, lok, kategorie, richtung);
    meldungen_[empfaenger] = m;
    if (bus_)
        bus_->melden(m);
}

QByteArray SimGeraete::letzteMeldung(Long empfaenger) const
{
    const auto m = meldungen_.find(empfaenger);
    return m == meldungen_.end() ? QByteArray() : m->second;
}

void SimGeraete::nachricht(const QByteArray& m)
{
    ++empfangen_;
    if (!pruefsummeStimmt(m) || !bus_)
        return;
    const quint8 opcode = at(m, 0);
    if (opcode == OPC_IMM_PACKET || opcode == OPC_PEER_XFER) {
        const std::optional<LncvAnfrage> a = LncvAnfrageLesen(m);
        if (!a)
            return;
        bool geaendert = false;
        for (const auto& modul : module_)
            for (const QByteArray& antwort : modul->anfrage(*a, geaendert))
                bus_->antworten(antwort);
        if (geaendert)
            aenderung();
    } else if (opcode == OPC_SW_REQ && m.size() == 4) {
        setzeWeiche(weichenAdresse(m), (at(m, 2) & 0x20) ? 1 : 0);
    } else if (opcode == OPC_SW_STATE && m.size() == 4) {
        const quint8 status = weiche(weichenAdresse(m)) == 1 ? 0x30 : 0x50;
        bus_->antworten(
            mitPruefsumme(QByteArray().append(b(OPC_LONG_ACK)).append(b(OPC_SW_STATE & 0x7F)).append(b(status))));
    } else if (opcode == OPC_INPUT_REP && m.size() == 4) {
        const Long adresse = Long(at(m, 1)) * 2 + 1 + Long(at(m, 2) & 15) * 256 + ((at(m, 2) & 0x20) ? 1 : 0);
        rueckmelder_[adresse] = (at(m, 2) & 0x10) ? 1 : 0;
    } else if (opcode == OPC_NAVIK && m.size() == 8 && at(m, 1) == 0x08) {
        const Long empfaenger = Long(at(m, 3) & 31) * 128 + at(m, 4);
        // A train report from anywhere (a script may send one) becomes the receiver's last.
        if ((at(m, 3) & 0xE0) != 0x20) {
            meldungen_[empfaenger] = m;
            return;
        }
        const bool abfrage = at(m, 2) == 1 && at(m, 5) == 0 && at(m, 6) == 0;
        const auto letzte = meldungen_.find(empfaenger);
        if (!abfrage || letzte == meldungen_.end())
            return;
        for (const auto& modul : module_)
            if (modul->stumm && modul->adresse() == empfaenger)
                return;
        bus_->antworten(letzte->second);
    }
}

void SimGeraete::textZeile(int teilnehmer, const QByteArray& zeile)
{
    // The command station is talked into LocoNet mode by text
    // commands; the program waits for a "]".
    if (bus_ && zeile.startsWith('x'))
        bus_->anTeilnehmer(teilnehmer, "[OK]");
}

void SimGeraete::aenderung()
{
    emit geaendert();
    ungespeichert_ = true;
    // Changes come in bursts (a module programmed value by value): one save
    // half a second after the first covers the burst.
    if (zustandsdatei_.isEmpty() || !bus_ || speichernGeplant_)
        return;
    speichernGeplant_ = true;
    QPointer<SimGeraete> selbst(this);
    bus_->uhr().nach(SpeicherVerzoegerung, [selbst] {
        if (!selbst)
            return;
        selbst->speichernGeplant_ = false;
        QString fehler;
        if (selbst->ungespeichert_ && !selbst->zustandSpeichern(fehler))
            emit selbst->speicherFehler(fehler);
    });
}

SimZustand SimGeraete::zustand() const
{
    SimZustand z;
    for (const auto& m : module_) {
        SimZustand::Modul zm{m->artikel(), m->anfangsAdresse(), {}};
        for (int i = 0; i < m->anzahl(); ++i)
            if (m->lncv(i) != 0)
                zm.werte[i] = m->lncv(i);
        z.module.push_back(std::move(zm));
    }
    z.weichen = weichen_;
    return z;
}

void SimGeraete::zustandUebernehmen(const SimZustand& zustand)
{
    for (const SimZustand::Modul& zm : zustand.module) {
        if (!SimModul::artikelBekannt(zm.artikel))
            continue;
        SimModul& m = modulHinzufuegen(zm.artikel, zm.adresse);
        for (int i = 0; i < m.anzahl(); ++i) {
            const auto w = zm.werte.find(i);
            m.setzeLncv(i, w == zm.werte.end() ? 0 : w->second);
        }
    }
    for (const auto& [adresse, stellung] : zustand.weichen)
        weichen_[adresse] = stellung;
}

bool SimGeraete::zustandLaden(QString& fehler)
{
    QFile f(zustandsdatei_);
    if (!f.exists())
        return true;
    if (!f.open(QIODevice::ReadOnly)) {
        fehler = QStringLiteral("Die Zustandsdatei %1 kann nicht gelesen werden: %2")
                     .arg(zustandsdatei_, f.errorString());
        return false;
    }
    SimZustand z;
    if (!SimZustandLesen(f.readAll(), z, fehler))
        return false;
    zustandUebernehmen(z);
    ungespeichert_ = false;
    return true;
}

bool SimGeraete::zustandSpeichern(QString& fehler)
{
    QSaveFile f(zustandsdatei_);
    if (!f.open(QIODevice::WriteOnly) || f.write(SimZustandText(zustand())) < 0 || !f.commit()) {
        fehler = QStringLiteral("Die Zustandsdatei %1 kann nicht geschrieben werden: %2")
                     .arg(zustandsdatei_, f.errorString());
        return false;
    }
    ungespeichert_ = false;
    return true;
}

}  // namespace planor
