// The LNCV exchange and the accessory messages over the scaffold transport in
// virtual time, against a hand-written module (see lncv_modul.h).
#include "loconet/lncv_austausch.h"

#include "core/panel_model.h"
#include "loconet/link.h"
#include "loconet/nachricht.h"
#include "tests/loconet/lncv_modul.h"
#include "tests/support/berichte.h"
#include "tests/support/daten.h"

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

enum class Ablauf { ProgOn, ProgOff, ReadLncv, ProgLncv, ReadMag, SendMag, SendRM, AskNavik, Send };

// What goes on the wire for a request (the builders are pinned byte for byte
// in the message tests).
QByteArray on(Long art = 4723, Long adr = 1234) { return mitPruefsumme(Prog_On_Nachricht(art, adr)); }
QByteArray off(Long art = 4723, Long adr = 1234) { return mitPruefsumme(Prog_Off_Nachricht(art, adr)); }
QByteArray lies(Long lncv, Long art = 4723) { return mitPruefsumme(Read_Lncv_Nachricht(art, lncv)); }
QByteArray schreib(Long lncv, Integer wert) { return mitPruefsumme(Prog_Lncv_Nachricht(4723, lncv, wert)); }

class LncvAustausch : public MitFehlerbericht {
protected:
    void SetUp() override
    {
        MitFehlerbericht::SetUp();
        auto t = std::make_unique<GeruestTransport>(uhr);
        bus = t.get();
        link.setzeTransport(std::move(t));
    }
    void TearDown() override { EXPECT_EQ(berichte.texte, QStringList()) << "no run-time error"; }

    // Runs one procedure for article 4723; `nr` is the address, LNCV or
    // accessory address, `wert` the value or position. Gives err.
    Long ausfuehren(Ablauf a, Long nr, Long wert = 0, Long art = 4723)
    {
        Long err = -1;
        switch (a) {
        case Ablauf::ProgOn: Prog_On(link, art, nr, err); break;
        case Ablauf::ProgOff: Prog_Off(link, art, nr, err); break;
        case Ablauf::ReadLncv: Read_Lncv(link, art, nr, gelesen, err); break;
        case Ablauf::ProgLncv: Prog_Lncv(link, art, nr, Integer(wert), err); break;
        case Ablauf::ReadMag: Read_Mag(link, nr, zustand, err); break;
        case Ablauf::SendMag: SendMag(link, nr, Integer(wert), err); break;
        case Ablauf::SendRM: SendRM(link, nr, Integer(wert), err); break;
        case Ablauf::AskNavik: Ask_Navik(link, nr, err); break;
        case Ablauf::Send: link.send(hex("B0 00 10"), err); break;
        }
        return err;
    }
    // A reply `sekunden` after each request from the n-th on.
    void antworteMit(const QByteArray& antwort, int abAnfrage = 1, double sekunden = 0.05)
    {
        bus->antwort = [this, antwort, abAnfrage, sekunden, n = 0](const QByteArray&) mutable {
            if (++n >= abAnfrage)
                bus->senden(antwort, sekunden);
        };
    }

    LocoNetLink link{uhr};
    GeruestTransport* bus = nullptr;
    Long gelesen = -1;
    Integer zustand = 7;
};

}  // namespace

TEST_F(LncvAustausch, EachProcedureAgainstAnAnsweringModule)
{
    const QByteArray frage1 = hex("BC 00 00 43");
    // modulWert: the LNCV's value in the module, -1 for none; antwort: instead of the module, if
    // set; ergebnis: the value read, the module's value written, the session or the state.
    const struct {
        const char* was;
        Ablauf ablauf;
        Long art, nr, wert, modulAdresse, modulWert;
        quint8 status;
        QByteArray antwort;
        Long err;
        QByteArray gesendet;
        double zeit;
        Long ergebnis;
    } faelle[] = {
        {"session start", Ablauf::ProgOn, 4723, 1234, 0, 1234, -1, 0x7F, {}, ProgOK, on(), 0.05, 1},
        {"any module of the type", Ablauf::ProgOn, 4723, 65535, 0, 77, -1, 0x7F, {}, ProgOK, on(4723, 65535), 0.05, 1},
        {"article with bit 7", Ablauf::ProgOn, 5330, 1234, 0, 1234, -1, 0x7F, {}, ProgOK, on(5330), 0.05, 1},
        {"address 0x8080", Ablauf::ProgOn, 4723, 0x8080, 0, 0x8080, -1, 0x7F, {}, ProgOK,
         mitChk(hex("ED 0F 08 05 00 21 70 73 12 00 00 00 00 00")), 0.05, 1},
        {"session end awaits nothing", Ablauf::ProgOff, 4723, 1234, 0, 1234, -1, 0x7F, {}, ProgOK, off(), 0, 0},
        {"read", Ablauf::ReadLncv, 4723, 16, 0, 1234, 300, 0x7F, {}, ProgOK, lies(16), 0.05, 300},
        {"unsigned 65535", Ablauf::ReadLncv, 4723, 3, 0, 1234, 65535, 0x7F, {}, ProgOK, lies(3), 0.05, 65535},
        {"bit 7 in both bytes", Ablauf::ReadLncv, 4723, 4, 0, 1234, 0x80FF, 0x7F, {}, ProgOK, lies(4), 0.05, 0x80FF},
        {"LNCV 128", Ablauf::ReadLncv, 4723, 128, 0, 1234, 7, 0x7F, {}, ProgOK, lies(128), 0.05, 7},
        {"write", Ablauf::ProgLncv, 4723, 5, 300, 1234, -1, 0x7F, {}, ProgOK, schreib(5, 300), 0.05, 300},
        {"-1 as 7F 7F", Ablauf::ProgLncv, 4723, 5, -1, 1234, -1, 0x7F, {}, ProgOK, schreib(5, -1), 0.05, 65535},
        {"refused write ends at once", Ablauf::ProgLncv, 4723, 5, 300, 1234, -1, 0x00, {}, ProgAbgelehnt,
         schreib(5, 300), 0.05, -1},
        {"any long ack", Ablauf::ProgLncv, 4723, 5, 300, 1234, -1, 0x7F, mitChk(hex("B4 3C 7F")), ProgOK,
         schreib(5, 300), 0.05, -1},
        {"switch thrown", Ablauf::ReadMag, 0, 1, 0, 0, -1, 0, mitChk(hex("B4 3C 30")), ProgOK, frage1, 0.05, 1},
        {"switch straight", Ablauf::ReadMag, 0, 300, 0, 0, -1, 0, mitChk(hex("B4 3C 50")), ProgOK, hex("BC 2B 02 6A"),
         0.05, 0},
        {"other position", Ablauf::ReadMag, 0, 1, 0, 0, -1, 0, mitChk(hex("B4 3C 20")), ProgOK, frage1, 0.05, 7},
        {"ack of another opcode", Ablauf::ReadMag, 0, 1, 0, 0, -1, 0, mitChk(hex("B4 6D 30")), ProgOK,
         frage1, 0.05, 7},
        {"on, 0.3 s, off", Ablauf::SendMag, 0, 1, 0, 0, -1, 0, {}, ProgOK, hex("B0 00 10 5F B0 00 00 4F"), 0.3, -1},
        // 299 = 2 * 128 + 43: 0x2B, then 2 + 32 + 16 = 0x32 and 2 + 32 = 0x22.
        {"high address", Ablauf::SendMag, 0, 300, 1, 0, -1, 0, {}, ProgOK, hex("B0 2B 32 56 B0 2B 22 46"), 0.3, -1},
        {"report", Ablauf::SendRM, 0, 1, 1, 0, -1, 0, {}, ProgOK, hex("B2 00 50 1D"), 0, -1},
        // Address 4: (3 div 2) = 1; the odd input sets 32, plus 64.
        {"report on input 4", Ablauf::SendRM, 0, 4, 0, 0, -1, 0, {}, ProgOK, hex("B2 01 60 2C"), 0, -1},
        {"ask does not wait", Ablauf::AskNavik, 0, 300, 0, 0, -1, 0, mitChk(hex("E4 08 01 22 2C 05 06")), ProgOK,
         hex("E4 08 01 22 2C 00 00 1C"), 0, -1},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.was);
        bus->gesendet.clear(), bus->verworfen = 0, gelesen = -1, zustand = 7;
        LncvModul modul(uhr, *bus, f.art, f.modulAdresse);
        modul.sitzung = f.ablauf != Ablauf::ProgOn;
        modul.status = f.status;
        if (f.modulWert >= 0)
            modul.werte[f.nr] = f.modulWert;
        if (!f.antwort.isEmpty())
            antworteMit(f.antwort);
        const double t0 = uhr.sekunden();
        EXPECT_EQ(ausfuehren(f.ablauf, f.nr, f.wert, f.art), f.err);
        EXPECT_EQ(h(bus->gesendet), h(f.gesendet)) << "one try only";
        EXPECT_NEAR(uhr.sekunden() - t0, f.zeit, 1e-9);
        EXPECT_EQ(bus->verworfen, 1);
        const Long ergebnis = f.ablauf == Ablauf::ReadLncv   ? gelesen
                              : f.ablauf == Ablauf::ProgLncv ? (modul.werte.count(f.nr) ? modul.werte[f.nr] : -1)
                              : f.ablauf == Ablauf::ReadMag  ? zustand
                              : f.ablauf <= Ablauf::ProgOff  ? Long(modul.sitzung)
                                                             : -1;
        EXPECT_EQ(ergebnis, f.ergebnis);
        uhr.weiter(1);  // late replies land before the next case
        bus->antwort = nullptr;
    }
}

TEST_F(LncvAustausch, AClosedPortGivesErr1AtOnce)
{
    bus->offen = false;
    for (Ablauf a : {Ablauf::ProgOn, Ablauf::ProgOff, Ablauf::ReadLncv, Ablauf::ProgLncv, Ablauf::ReadMag,
                     Ablauf::SendMag, Ablauf::SendRM, Ablauf::AskNavik, Ablauf::Send}) {
        SCOPED_TRACE(int(a));
        EXPECT_EQ(ausfuehren(a, 16, 300), ProgSendeFehler);
        EXPECT_EQ(uhr.sekunden(), 0.0) << "no wait, no pause";
        EXPECT_EQ(zustand, 7);
    }
    EXPECT_TRUE(bus->gesendet.isEmpty());
}

TEST_F(LncvAustausch, ALateAnswerIsWaitedForTryAfterTryUpToNTriesOfTSeconds)
{
    const struct {
        Ablauf ablauf;
        int schweigen, versuche;
        double sekunden;
        std::vector<int> verworfenBeiAnfrage;  // before each read, once for the others
        QByteArray gesendet;
    } faelle[] = {
        {Ablauf::ProgOn, 3, 5, 0.2, {1, 1, 1, 1}, on().repeated(4)},
        {Ablauf::ProgOn, 5, 5, 0.2, {1, 1, 1, 1, 1}, on().repeated(5)},
        {Ablauf::ReadLncv, 2, 10, 0.5, {1, 2, 3}, lies(16).repeated(3)},
        {Ablauf::ReadLncv, 10, 10, 0.5, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, lies(16).repeated(10)},
        {Ablauf::ProgLncv, 4, 10, 0.5, {1, 1, 1, 1, 1}, schreib(16, 300).repeated(5)},
        {Ablauf::ProgLncv, 10, 10, 0.5, std::vector<int>(10, 1), schreib(16, 300).repeated(10)},
        {Ablauf::ReadMag, 2, 10, 0.5, {}, hex("BC 0F 00 4C").repeated(3)},
        {Ablauf::ReadMag, 10, 10, 0.5, {}, hex("BC 0F 00 4C").repeated(10)},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(testing::Message() << int(f.ablauf) << " silent " << f.schweigen);
        bus->gesendet.clear(), bus->verworfen = 0, gelesen = -1, zustand = 7;
        LncvModul modul(uhr, *bus, 4723, 1234);
        modul.sitzung = f.ablauf != Ablauf::ProgOn;
        modul.werte[16] = 9;
        modul.schweigen = f.schweigen;
        if (f.ablauf == Ablauf::ReadMag)
            antworteMit(mitChk(hex("B4 3C 30")), f.schweigen + 1);
        const bool antwort = f.schweigen < f.versuche;
        const double t0 = uhr.sekunden();
        EXPECT_EQ(ausfuehren(f.ablauf, f.ablauf == Ablauf::ProgOn ? 1234 : 16, 300),
                  antwort ? ProgOK : ProgKeineAntwort);
        EXPECT_NEAR(uhr.sekunden() - t0, antwort ? f.schweigen * f.sekunden + 0.05 : f.versuche * f.sekunden, 1e-9);
        EXPECT_EQ(h(bus->gesendet), h(f.gesendet));
        EXPECT_EQ(modul.verworfenBeiAnfrage, f.verworfenBeiAnfrage);
        EXPECT_EQ(bus->verworfen, f.ablauf == Ablauf::ReadLncv ? int(f.gesendet.size() / 15) : 1);
        for (std::size_t i = 1; i < modul.zeiten.size(); ++i)
            EXPECT_NEAR(modul.zeiten[i] - modul.zeiten[i - 1], f.sekunden, 1e-9) << "the next try follows at once";
        EXPECT_EQ(gelesen, f.ablauf == Ablauf::ReadLncv && antwort ? 9 : -1);
        EXPECT_EQ(zustand, f.ablauf == Ablauf::ReadMag && antwort ? 1 : 7);
    }
}

TEST_F(LncvAustausch, AForeignAnswerIsIgnored)
{
    const struct {
        const char* was;
        Ablauf ablauf;
        Long modulArtikel, modulAdresse, lncvVersatz;
        bool fremd;
        int versuche;
    } faelle[] = {
        {"session start, other article", Ablauf::ProgOn, 4722, 1234, 0, true, 5},
        {"session start, other address", Ablauf::ProgOn, 4723, 1235, 0, true, 5},
        {"session start, LNCV 1 for 0", Ablauf::ProgOn, 4723, 1234, 1, false, 5},
        {"read, other LNCV", Ablauf::ReadLncv, 4723, 1234, 1, false, 10},
        {"read, other article", Ablauf::ReadLncv, 4722, 1234, 0, true, 10},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.was);
        LncvModul modul(uhr, *bus, f.modulArtikel, f.modulAdresse);
        modul.sitzung = f.ablauf != Ablauf::ProgOn;
        modul.fremd = f.fremd;
        modul.lncvVersatz = f.lncvVersatz;
        modul.werte[16] = 9;
        const double t0 = uhr.sekunden();
        EXPECT_EQ(ausfuehren(f.ablauf, f.ablauf == Ablauf::ProgOn ? 1234 : 16), ProgKeineAntwort);
        EXPECT_EQ(int(modul.zeiten.size()), f.versuche);
        EXPECT_EQ(gelesen, -1);
        if (f.ablauf == Ablauf::ProgOn) {
            EXPECT_NEAR(uhr.sekunden() - t0, 5 * 0.05, 1e-9) << "a failed check ends the try at once";
        }
    }
}

TEST_F(LncvAustausch, OwnEchoIsNotTakenForTheAnswer)
{
    bus->echo = true;
    for (Ablauf a : {Ablauf::ProgOn, Ablauf::ReadLncv, Ablauf::ProgLncv})
        EXPECT_EQ(ausfuehren(a, a == Ablauf::ProgOn ? 1234 : 16, 300), ProgKeineAntwort) << int(a);
    EXPECT_EQ(gelesen, -1);

    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.werte[16] = 210;
    EXPECT_EQ(ausfuehren(Ablauf::ProgOn, 1234), ProgOK);
    EXPECT_EQ(ausfuehren(Ablauf::ReadLncv, 16), ProgOK);
    EXPECT_EQ(gelesen, 210);
}

TEST_F(LncvAustausch, NavikVersionByArticleAndLncv16)
{
    const QString nichtVerbunden = QStringLiteral(
        "Fehler|               Der PC ist nicht mit der Rondel verbunden!\n"
        "              Die Software-Version kann nicht ermittelt werden!\n"
        "Bitte stellen Sie die Verbindung mit der Rondel her und wiederholen Sie den Vorgang!");
    const QString antwortetNicht = QStringLiteral(
        "Fehler|                   Modul antwortet nicht!\n"
        "     Die Software-Version kann nicht ermittelt werden!\n"
        "Bitte überprüfen Sie das Modul und wiederholen Sie den Vorgang!");
    enum Modul { Keins = -3, Getrennt = -2, OhneLncv16 = -1 };
    const QByteArray sitzung5330 = on(5330) + lies(16, 5330) + off(5330);
    const struct {
        Long artNr, draht, lncv16;  // lncv16: the module's LNCV 16, or a Modul
        Integer erwartet;           // the version before is 9
        QByteArray gesendet;
        double zeit;
        QString meldung;
    } faelle[] = {
        {47120, 0, Keins, 0, {}, 0, {}}, {47130, 0, Keins, 0, {}, 0, {}}, {47190, 0, Keins, 0, {}, 0, {}},
        {47220, 0, Keins, 0, {}, 0, {}}, {47240, 0, Keins, 0, {}, 0, {}}, {0, 0, Keins, 9, {}, 0, {}},
        {47320, 0, Keins, 9, {}, 0, {}}, {47330, 0, Keins, 9, {}, 0, {}}, {4723, 0, Keins, 9, {}, 0, {}},
        {533, 0, Keins, 9, {}, 0, {}},
        {5330, 5330, 150, 1, sitzung5330, 0.1, {}},     {5330, 5330, 0, 1, sitzung5330, 0.1, {}},
        {5330, 5330, 199, 1, sitzung5330, 0.1, {}},     {5330, 5330, 200, 2, sitzung5330, 0.1, {}},
        {5330, 5330, 65535, 2, sitzung5330, 0.1, {}},   {47230, 4723, 204, 1, on() + lies(16) + off(), 0.1, {}},
        {47230, 4723, 205, 2, on() + lies(16) + off(), 0.1, {}},
        // Without an answer the type's default, and the session is closed.
        {47230, 4723, OhneLncv16, 1, on() + lies(16).repeated(10) + off(), 0.05 + 10 * 0.5, {}},
        {5330, 5330, OhneLncv16, 2, on(5330) + lies(16, 5330).repeated(10) + off(5330), 0.05 + 10 * 0.5, {}},
        {5330, 5330, Keins, 2, on(5330).repeated(5), 5 * 0.2, antwortetNicht},
        {47230, 4723, Keins, 1, on().repeated(5), 5 * 0.2, antwortetNicht},
        {5330, 5330, Getrennt, 2, {}, 0, nichtVerbunden},
        {47230, 4723, Getrennt, 1, {}, 0, nichtVerbunden},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(testing::Message() << f.artNr << " LNCV 16 " << f.lncv16);
        bus->gesendet.clear();
        bus->offen = f.lncv16 != Getrennt;
        LncvModul modul(uhr, *bus, f.draht, 1234);
        if (f.lncv16 >= 0)
            modul.werte[16] = f.lncv16;
        if (f.lncv16 == Keins)
            bus->antwort = nullptr;
        Anlage anlage;
        XY_Typ& z = anlage.XY(3, 4);
        z.XY_ArtNr = f.artNr;
        z.XY_LNCV(0) = 1234;
        z.XY_Version = 9;
        Meldungen benutzer;
        const double t0 = uhr.sekunden();
        Get_Navik_Version(link, benutzer, anlage, 3, 4);
        EXPECT_EQ(z.XY_Version, f.erwartet);
        EXPECT_EQ(h(bus->gesendet), h(f.gesendet));
        EXPECT_NEAR(uhr.sekunden() - t0, f.zeit, 1e-9);
        EXPECT_FALSE(modul.sitzung);
        EXPECT_EQ(benutzer.texte, f.meldung.isEmpty() ? QStringList() : QStringList{f.meldung});
        EXPECT_EQ(benutzer.symbole.size(), benutzer.texte.size());
    }
}

TEST_F(LncvAustausch, WholeSessionProgramsTheModule)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.werte[16] = 210;
    ASSERT_EQ(ausfuehren(Ablauf::ProgOn, 1234), ProgOK);
    ASSERT_EQ(ausfuehren(Ablauf::ReadLncv, 16), ProgOK);
    EXPECT_EQ(gelesen, 210);
    ASSERT_EQ(ausfuehren(Ablauf::ProgLncv, 5, 300), ProgOK);
    ASSERT_EQ(ausfuehren(Ablauf::ProgOff, 1234), ProgOK);
    EXPECT_EQ(h(bus->gesendet), h(on() + lies(16) + schreib(5, 300) + off()));
    EXPECT_EQ(modul.werte[5], 300);
    EXPECT_FALSE(modul.sitzung);
}
