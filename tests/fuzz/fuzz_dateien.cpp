// libFuzzer target over the file readers: the first byte chooses the reader
// (its low two bits, see Dateileser), the rest is the file. A reader may end
// with planor::Laufzeitfehler only; anything else escaping, a sanitizer
// report, a hang or unbounded memory is a finding. Built and run by
// scripts/fuzz.sh.
#include "tests/fuzz/dateileser.h"

#include "core/laufzeitfehler.h"
#include "platform/uhr.h"

#include <QFile>
#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace planor;
using namespace planor::test;

namespace {

// The real catalogue, read once: the project reader works with it.
const Elementkatalog& echterKatalog()
{
    static const Elementkatalog katalog = [] {
        Elementkatalog k;
        Anlage anlage;
        QFile f(QStringLiteral(PLANOR_KATALOG));
        if (!f.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "fuzz_dateien: %s fehlt\n", PLANOR_KATALOG);
            std::abort();
        }
        k.lesen(f.readAll(), anlage);
        return k;
    }();
    return katalog;
}

void einrichten()
{
    // Qt's warnings (a file name with a NUL byte, say) would drown the
    // fuzzer's own output; a fatal message still aborts.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
    static StilleFehlerAnzeige anzeige;
    FehlerbehandlungEinrichten({QStringLiteral("/dev/null"), &uhr, &anzeige});
    echterKatalog();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse)
{
    static const bool eingerichtet = (einrichten(), true);
    (void)eingerichtet;
    if (groesse == 0)
        return 0;
    const auto leser = static_cast<Dateileser>(daten[0] % DateileserAnzahl);
    const QByteArray bytes(reinterpret_cast<const char*>(daten + 1), static_cast<qsizetype>(groesse - 1));
    try {
        einlesen(leser, bytes, echterKatalog(), QStringLiteral(PLANOR_PROJEKTORDNER));
    } catch (const Laufzeitfehler&) {
        // The specified way of failing.
    }
    return 0;
}
