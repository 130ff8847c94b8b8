#include "loconet/text_monitor.h"

#include "core/fehlerbehandlung.h"
#include "loconet/empfang.h"
#include "platform/uhr.h"

#include <QDir>

namespace planor {

TextMonitor::TextMonitor(Uhr& uhr, QString ordner)
    : uhr_(uhr)
    , ordner_(std::move(ordner))
{
}

void TextMonitor::anschliessen(Empfang& empfang)
{
    empfang_ = &empfang;
    empfang.decode_ln_mes
        = [this](const QByteArray& m) { geschuetzt("frmMonitor : decode_ln_mes", [&] { nachricht(m); }); };
    empfang.Monitor_Aktiv = aktiv_;
}

void TextMonitor::setzeAktiv(bool aktiv)
{
    aktiv_ = aktiv;
    if (empfang_)
        empfang_->Monitor_Aktiv = aktiv;
}

QStringList TextMonitor::nachricht(const QByteArray& nachricht)
{
    if (!aktiv_)
        return {};
    kappen();
    const QString text = decode_ln_mes(zustand_, nachricht);
    return zeigen(MonitorZeilen(zustand_.Hex_Ausgabe, text), text);
}

void TextMonitor::kappen()
{
    const QString gekappt = MonitorKappen(ansicht_);
    if (gekappt.size() == ansicht_.size())
        return;
    ansicht_ = gekappt;
    Zeilen_ = 0;
    ++schnitte_;
    melden();
}

QStringList TextMonitor::zeigen(const QStringList& zeilen, const QString& text)
{
    // The trace takes the text as decoded, one line however long.
    verlauf_.zeile(uhr_.jetzt().time(), text);
    if (zeilen.isEmpty())
        return zeilen;
    for (const QString& zeile : zeilen)
        ansicht_ += zeile + u'\n';
    Zeilen_ = CInt(Zeilen_ + zeilen.size());
    melden();
    return zeilen;
}

void TextMonitor::cmdStartStop_Click()
{
    setzeAktiv(!aktiv_);
    const QString zeile = aktiv_ ? StartZeile : StopZeile;
    zeigen(ZeilenUmbruch(zeile), zeile);
}

bool TextMonitor::btnTraceOnOff_Click(QString& fehler)
{
    if (verlauf_.offen()) {
        traceAus();
    } else {
        const QString pfad = QDir(ordner_).filePath(VerlaufName(uhr_.jetzt()) + QStringLiteral(".txt"));
        if (!verlauf_.oeffnen(pfad, fehler))
            return false;
        traceName_ = pfad;
        status_ = QStringLiteral("Speichern: ") + pfad;
    }
    melden();
    return true;
}

void TextMonitor::traceAus()
{
    if (!verlauf_.offen())
        return;
    verlauf_.schliessen();
    status_ = QStringLiteral("Gespeichert unter: ") + traceName_;
}

void TextMonitor::btnClear_Click()
{
    ansicht_.clear();
    Zeilen_ = 0;
    ++schnitte_;
    melden();
}

void TextMonitor::melden()
{
    if (geaendert)
        geaendert();
}

void TextMonitor::btnCancel_Click()
{
    setzeAktiv(false);
    traceAus();
    const bool hex = zustand_.Hex_Ausgabe, asciiHex = zustand_.Ascii_Hex;
    zustand_ = MonitorZustand {};
    zustand_.Hex_Ausgabe = hex;
    zustand_.Ascii_Hex = asciiHex;
    btnClear_Click();
}

} // namespace planor
