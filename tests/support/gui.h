#pragma once
// Helpers of the widget tests: answering the modal forms that a step waits on.

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

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

// A control of a form by its objectName; a missing one ends the test run.
template <typename T>
T* kind(QWidget* form, const QString& name)
{
    T* w = form->findChild<T*>(name);
    if (!w)
        qFatal("control %s is missing", qPrintable(name));
    return w;
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

}  // namespace planor::test
