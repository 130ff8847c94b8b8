#pragma once
// The one error report for failures: every procedure
// guards its body; a run-time error in it goes to Fehlerbehandlung with the
// procedure's constant label "<Module> : <Procedure>", and the procedure ends
// with its default result while the caller carries on.

#include "core/laufzeitfehler.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <functional>
#include <new>
#include <type_traits>

namespace planor {

class Uhr;

inline const QString FehlerTitel = QStringLiteral("--- Programmfehler ---");

// Where a report is shown: a message box with the critical icon in the GUI,
// stderr in planor-cli.
class FehlerAnzeige {
public:
    virtual ~FehlerAnzeige() = default;
    virtual void zeigen(const QString& titel, const QString& text) = 0;
};

struct FehlerUmgebung {
    QString logDatei;                 // full path of Fehler.log
    const Uhr* uhr = nullptr;         // date and time of the log entry
    FehlerAnzeige* anzeige = nullptr;
};

// Each executable (and each test) says once where reports go. Until then
// they go to stderr and to Fehler.log in the folder of Planor.CFG.
void FehlerbehandlungEinrichten(const FehlerUmgebung& umgebung);
const FehlerUmgebung& FehlerbehandlungUmgebung();

// The text of the message box.
QString FehlerboxText(const QString& label, const Laufzeitfehler& fehler, const QString& logDatei);
// The three lines appended to Fehler.log, Windows-1252 with CR LF.
QByteArray FehlerlogEintrag(const QString& label, const Laufzeitfehler& fehler, const QDateTime& zeit);

// Appends to Fehler.log, then shows the report.
void Fehlerbehandlung(const QString& label, const Laufzeitfehler& fehler);

namespace detail {
// Runs the body; reports what it throws and tells whether it ended normally.
bool geschuetztAusfuehren(const char* label, const std::function<void()>& rumpf);
}

// The guard: runs the body and gives its result, or reports a run-time error
// under the label and gives the default result.
template <typename R, typename F>
R geschuetzt(const char* label, R standard, F&& rumpf)
{
    R ergebnis = standard;
    if (!detail::geschuetztAusfuehren(label, [&] { ergebnis = rumpf(); }))
        return standard;
    return ergebnis;
}

// The guard of a procedure without result.
template <typename F>
    requires std::is_void_v<std::invoke_result_t<F>>
void geschuetzt(const char* label, F&& rumpf)
{
    detail::geschuetztAusfuehren(label, std::forward<F>(rumpf));
}

}  // namespace planor
