// libFuzzer target over the file readers (scripts/fuzz.sh): the first byte chooses the
// reader, the rest is the file. Anything but Laufzeitfehler escaping is a finding.
#include "core/laufzeitfehler.h"
#include "platform/uhr.h"
#include "tests/fuzz/dateileser.h"

#include <cstdint>

using namespace planor;
using namespace planor::test;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse)
{
    static Elementkatalog katalog;  // the real one: the project reader works with it
    static const bool eingerichtet = [] {
        // Qt's warnings (a file name with a NUL byte, say) would drown the fuzzer's output.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        static TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
        static StilleFehlerAnzeige anzeige;
        FehlerbehandlungEinrichten({QStringLiteral("/dev/null"), &uhr, &anzeige});
        Anlage anlage;
        Elemente_laden(QStringLiteral(PLANOR_KATALOG), katalog, anlage);
        return true;
    }();
    if (!eingerichtet || groesse == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(daten + 1), static_cast<qsizetype>(groesse - 1));
    try {
        einlesen(static_cast<Dateileser>(daten[0] % DateileserAnzahl), bytes, katalog, QStringLiteral(PLANOR_PROJEKTORDNER));
    } catch (const Laufzeitfehler&) {
        // The one allowed way of failing.
    }
    return 0;
}
