#include "core/ui/check_wert_anzeige.h"

#include <QAbstractButton>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace planor {

namespace {

class NurZiffernFilter final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* ziel, QEvent* ereignis) override
    {
        if (ereignis->type() == QEvent::KeyPress) {
            const QString text = static_cast<QKeyEvent*>(ereignis)->text();
            // Only keys that type something printable reach the filter:
            // navigation and editing keys must not count as input.
            if (!text.isEmpty() && text.at(0).isPrint()) {
                for (const QChar c : text)
                    if (Nur_Ziffern(c.unicode()) == 0)
                        return true;
            }
        }
        return QObject::eventFilter(ziel, ereignis);
    }
};

}  // namespace

void CheckWertFarbe(QLineEdit* feld, bool gueltig)
{
    QPalette farben = feld->palette();
    // Colours 255 (red) and 0 (black); a disabled field keeps
    // its own look.
    const QColor farbe = gueltig ? QColor(Qt::black) : QColor(Qt::red);
    farben.setColor(QPalette::Active, QPalette::Text, farbe);
    farben.setColor(QPalette::Inactive, QPalette::Text, farbe);
    feld->setPalette(farben);
}

void CheckWertAnzeigen(const CheckWertErgebnis& ergebnis, QLineEdit* feld, QLabel* label)
{
    CheckWertFarbe(feld, ergebnis.gueltig);
    label->setText(ergebnis.labelText);
}

void CheckWertAnzeigen(const CheckWertErgebnis& ergebnis, QLineEdit* feld, QLabel* label, QAbstractButton* okBut)
{
    CheckWertAnzeigen(ergebnis, feld, label);
    okBut->setEnabled(ergebnis.gueltig);
}

void Nur_Ziffern_Filter(QLineEdit* feld)
{
    feld->installEventFilter(new NurZiffernFilter(feld));
}

}  // namespace planor
