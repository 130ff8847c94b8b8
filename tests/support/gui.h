#pragma once
// Helpers of the widget tests: answering the modal forms that a step waits on.

#include "tests/support/berichte.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <map>

namespace planor::test {

// The owner of the waits still pending; a test's cleanup ends them, so that
// none outlives the test whose variables it refers to.
inline QObject& wartende()
{
    static QObject besitzer;
    return besitzer;
}

inline void wartendeBeenden()
{
    qDeleteAll(wartende().findChildren<QTimer*>());
}

// Waits (serving events) for a visible top-level widget of that name, then
// hands it to `tun` — for the modal forms and message boxes.
inline void wennSichtbar(const QString& name, std::function<void(QWidget*)> tun)
{
    auto* timer = new QTimer(&wartende());
    QObject::connect(timer, &QTimer::timeout, [timer, name, tun] {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (w->objectName() == name && w->isVisible()) {
                timer->stop();
                timer->deleteLater();
                tun(w);
                return;
            }
        }
    });
    timer->start(10);
}

// Presses StartBut of the splash form once it shows; notes its InfoLbl.
inline void startDruecken(QString* infoLbl = nullptr)
{
    wennSichtbar(QStringLiteral("Start_Form"), [infoLbl](QWidget* form) {
        if (infoLbl)
            *infoLbl = form->findChild<QLabel*>(QStringLiteral("InfoLbl"))->text();
        QTest::mouseClick(form->findChild<QPushButton*>(QStringLiteral("StartBut")), Qt::LeftButton);
    });
}

inline void schreiben(const QString& datei, const QByteArray& bytes)
{
    QFile f(datei);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

inline QByteArray lesen(const QString& datei)
{
    QFile f(datei);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A control of a form by its objectName; a missing one ends the test run.
template <typename T>
T* kind(QWidget* form, const QString& name)
{
    T* w = form->findChild<T*>(name);
    if (!w)
        qFatal("control %s is missing", qPrintable(name));
    return w;
}

// Replaces a field's text by typing, as a user does. This and `rot` are
// templates so that a test file's own helper of the same shape still wins.
template <typename = void>
void tippen(QLineEdit* f, const QString& text)
{
    f->setFocus();
    f->selectAll();
    QTest::keyClick(f, Qt::Key_Backspace);
    QTest::keyClicks(f, text);
}

// A refused field shows its text in red.
template <typename = void>
bool rot(QLineEdit* f) { return f->palette().color(QPalette::Text) == QColor(Qt::red); }

// Clicks a button of a form by its objectName.
inline void klick(QWidget* form, const QString& name)
{
    QTest::mouseClick(kind<QAbstractButton>(form, name), Qt::LeftButton);
}

// Clicks a message box's button.
inline void klick(QWidget* box, QMessageBox::StandardButton knopf)
{
    QTest::mouseClick(static_cast<QMessageBox*>(box)->button(knopf), Qt::LeftButton);
}

// Answers every visible top-level window of a name each time it shows, and
// notes what it saw: the objectName, or "title|text|icon" of a message box.
class FensterAntworten : public QObject {
public:
    explicit FensterAntworten(std::map<QString, std::function<void(QWidget*)>> tun) : tun_(std::move(tun))
    {
        auto* timer = new QTimer(&wartende());
        connect(timer, &QTimer::timeout, this, [this] {
            for (QWidget* w : QApplication::topLevelWidgets()) {
                const auto handler = tun_.find(w->objectName());
                if (handler == tun_.end() || !w->isVisible() || w == zuletzt_)
                    continue;
                zuletzt_ = w;
                gesehen << beschreibung(w);
                handler->second(w);
                zuletzt_ = nullptr;
                return;
            }
        });
        timer->start(10);
    }

    static QString beschreibung(QWidget* w)
    {
        auto* box = qobject_cast<QMessageBox*>(w);
        if (!box)
            return w->objectName();
        return box->windowTitle() + u'|' + box->text() + u'|'
               + (box->icon() == QMessageBox::Critical ? QStringLiteral("kritisch") : QString());
    }

    QStringList gesehen;

private:
    std::map<QString, std::function<void(QWidget*)>> tun_;
    QWidget* zuletzt_ = nullptr;
};

}  // namespace planor::test
