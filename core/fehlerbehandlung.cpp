#include "core/fehlerbehandlung.h"

#include "core/ansi_text.h"
#include "core/programmordner.h"
#include "platform/uhr.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace planor {

namespace {

class StderrAnzeige final : public FehlerAnzeige {
public:
    void zeigen(const QString& titel, const QString& text) override
    {
        std::fputs(qPrintable(titel + u'\n' + text + u'\n'), stderr);
        std::fflush(stderr);
    }
};

FehlerUmgebung& umgebung()
{
    static SystemUhr systemUhr;
    static StderrAnzeige stderrAnzeige;
    static FehlerUmgebung u{QString(), &systemUhr, &stderrAnzeige};
    return u;
}

QString ersteZeile(const QString& label) { return QStringLiteral(" Fehler in : ") + label; }

QString zweiteZeile(const Laufzeitfehler& fehler)
{
    return QStringLiteral(" Fehlernummer: ") + QString::number(fehler.nummer()) + QStringLiteral(" -> ")
           + fehler.beschreibung();
}

QString logDatei()
{
    const QString& datei = umgebung().logDatei;
    return datei.isEmpty() ? QDir(Ablageordner()).filePath(QStringLiteral("Fehler.log")) : datei;
}

}  // namespace

void FehlerbehandlungEinrichten(const FehlerUmgebung& neu)
{
    FehlerUmgebung& u = umgebung();
    u.logDatei = neu.logDatei;
    if (neu.uhr)
        u.uhr = neu.uhr;
    if (neu.anzeige)
        u.anzeige = neu.anzeige;
}

const FehlerUmgebung& FehlerbehandlungUmgebung() { return umgebung(); }

QString FehlerboxText(const QString& label, const Laufzeitfehler& fehler, const QString& logDatei)
{
    return ersteZeile(label) + u'\n' + zweiteZeile(fehler) + QStringLiteral("\n\n\n")
           + QStringLiteral(" Bei einer Fehlerbeschreibung bitte das File:\n") + QDir::toNativeSeparators(logDatei)
           + QStringLiteral("\n an die Service-Adresse mitsenden.");
}

QByteArray FehlerlogEintrag(const QString& label, const Laufzeitfehler& fehler, const QDateTime& zeit)
{
    ansi::Schreiber log;
    log.zeile(QStringLiteral("### ") + zeit.toString(QStringLiteral("dd.MM.yyyy")) + QStringLiteral(" - ")
              + zeit.toString(QStringLiteral("HH:mm:ss")) + QStringLiteral(" :"));
    log.zeile(QStringLiteral("    ") + ersteZeile(label));
    log.zeile(QStringLiteral("    ") + zweiteZeile(fehler));
    return log.bytes();
}

void Fehlerbehandlung(const QString& label, const Laufzeitfehler& fehler)
{
    const QString datei = logDatei();
    // A log that cannot be written must not stop the report itself.
    QFile log(datei);
    if (log.open(QIODevice::WriteOnly | QIODevice::Append))
        log.write(FehlerlogEintrag(label, fehler, umgebung().uhr->jetzt()));
    umgebung().anzeige->zeigen(FehlerTitel, FehlerboxText(label, fehler, datei));
}

namespace detail {

bool geschuetztAusfuehren(const char* label, const std::function<void()>& rumpf)
{
    const QString name = QString::fromUtf8(label);
    try {
        rumpf();
        return true;
    } catch (const Laufzeitfehler& fehler) {
        Fehlerbehandlung(name, fehler);
    } catch (const std::bad_alloc&) {
        Fehlerbehandlung(name, Laufzeitfehler(Fehlernummer::NichtGenugSpeicher));
    } catch (const std::exception&) {
        Fehlerbehandlung(name, Laufzeitfehler(Fehlernummer::UnzulaessigerAufruf));
    }
    return false;
}

}  // namespace detail

}  // namespace planor
