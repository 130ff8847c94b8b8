// Programming through the real main window on the demo project and the
// built-in simulator: the prompt's three answers, the blinking mark, and the
// pick of a single module on the locked plan.
#include "core/element_katalog.h"
#include "core/exit_frage.h"
#include "core/fehlerbehandlung.h"
#include "core/programmordner.h"
#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "editor/pult_modell.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "loconet/open_com.h"
#include "loconet/ui/pult_fehl_meldung.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"
#include "tests/support/gui_demo.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include <functional>
#include <map>

using namespace planor;
using namespace planor::test;

namespace {

// Answers every visible top-level window of a name, each time it shows.
class Antworten : public QObject {
public:
    explicit Antworten(std::map<QString, std::function<void(QWidget*)>> tun) : tun_(std::move(tun))
    {
        auto* timer = new QTimer(&wartende());
        connect(timer, &QTimer::timeout, this, [this] {
            for (QWidget* w : QApplication::topLevelWidgets()) {
                const auto handler = tun_.find(w->objectName());
                if (handler == tun_.end() || !w->isVisible() || w == zuletzt_)
                    continue;
                zuletzt_ = w;
                handler->second(w);
                zuletzt_ = nullptr;
                return;
            }
        });
        timer->start(10);
    }

private:
    std::map<QString, std::function<void(QWidget*)>> tun_;
    QWidget* zuletzt_ = nullptr;
};

// The start question and any message: OK.
void meldungOk(QWidget* w)
{
    auto* box = static_cast<QMessageBox*>(w);
    QAbstractButton* ok = box->button(QMessageBox::Ok);
    QTest::mouseClick(ok ? ok : box->buttons().constFirst(), Qt::LeftButton);
}

void knopf(QWidget* form, int i)
{
    QTest::mouseClick(kind<QPushButton>(form, QStringLiteral("EXIT_But(%1)").arg(i)), Qt::LeftButton);
}

}  // namespace

class TstProgrammieren : public QObject, private DemoProgramm {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The link and the simulated modules run in virtual time: a full run
        // of several hundred LNCV exchanges, and the time-outs of a silent
        // module, take no wall-clock time.
        QVERIFY(starten(true));
        programm->anlage.PultOpt.PultOptGPLocked = true;
        win->GleisPlan_Lock_Unlock();
        QVERIFY(aktion("ProgHauptMenu")->isEnabled());
        QVERIFY(aktion("AuslHauptMenu")->isEnabled());
        QVERIFY(aktion("ProgMenu(1)")->isEnabled());
        QVERIFY(aktion("ProgMenu(2)")->isEnabled());
        QVERIFY(!aktion("ProgMenu(3)")->isEnabled());

        // The first NAVIK receiver of the plan.
        for (int x = 1; x <= programm->anlage.DimensionenX && !modulX; ++x)
            for (int y = 1; y <= programm->anlage.DimensionenY && !modulX; ++y)
                if (programm->anlage.XY(x, y).XY_ArtNr == 47220) {
                    modulX = x;
                    modulY = y;
                }
        QVERIFY(modulX != 0);
    }

    void init()
    {
        notbremseSpannen(60000);
    }

    void cleanup()
    {
        wartendeBeenden();
        QVERIFY(!notbremse);
        QCOMPARE(berichte.texte, QStringList());
        for (const auto& m : simulator->geraete().module())
            m->stumm = false;
    }

    void AlleModuleProgramsTheSimulatedModules()
    {
        Antworten antworten({{QStringLiteral("Meldung"), meldungOk}});
        aktion("ProgMenu(1)")->trigger();
        QVERIFY(info("InfoTxt1").endsWith(QStringLiteral("Programmierung beendet !!!")));
        SimModul* m = modul(modulX, modulY);
        QVERIFY(m);
        const XY_Typ& zelle = programm->anlage.XY(modulX, modulY);
        int verschieden = 0;
        for (int i = 2; i <= 119; ++i) {
            if (i == 16)
                continue;
            QCOMPARE(m->lncv(i), quint16(zelle.XY_LNCV(i)));
            verschieden += zelle.XY_LNCV(i) != 0;
        }
        QVERIFY2(verschieden > 0, "the demo's receiver carries values beyond the factory's");
        QVERIFY(!m->sitzungOffen());
        menusFrei();
        QVERIFY(!win->schnittstelle().istOffen());
    }

    void ASilentModuleGetsThePromptNochmalThenNaechstes()
    {
        modul(modulX, modulY)->stumm = true;
        Markierungen markiert(*this);
        int prompts = 0;
        QString titel, fortschritt;
        bool menusGesperrt = false;
        Antworten antworten({{QStringLiteral("Meldung"), meldungOk},
                             {QStringLiteral("PultFehlMeldung_Form"), [&](QWidget* form) {
                                  titel = form->windowTitle();
                                  menusGesperrt = !aktion("ProgHauptMenu")->isEnabled()
                                                  && !aktion("AuslHauptMenu")->isEnabled()
                                                  && !aktion("OptionHauptMenu")->isEnabled();
                                  if (auto* l = win->findChild<QLabel*>(QStringLiteral("InfoTxt3")))
                                      fortschritt = l->text();
                                  knopf(form, ++prompts == 1 ? 0 : 1);
                              }}});
        aktion("ProgMenu(1)")->trigger();
        QCOMPARE(prompts, 2);
        QCOMPARE(titel, QStringLiteral("alle Module programmieren"));
        QVERIFY(menusGesperrt);
        QVERIFY2(fortschritt.startsWith(QStringLiteral("Modul ")) && fortschritt.contains(QStringLiteral(" von ")),
                 qPrintable(fortschritt));
        // The run went on to its end after "nächstes".
        QVERIFY(info("InfoTxt1").endsWith(QStringLiteral("Programmierung beendet !!!")));
        // The module at work blinked with its "_ausw.bmp" picture, and got its own back.
        QVERIFY2(markiert.bilder.contains(zellSchluessel(modulX, modulY)), qPrintable(markiert.alle.join(u',')));
        const QString marke = markiert.bilder.value(zellSchluessel(modulX, modulY));
        QVERIFY(marke.endsWith(QStringLiteral("_ausw.bmp")));
        QVERIFY2(QFile::exists(KonfPfad() + marke), qPrintable(marke));
        QCOMPARE(bild(modulX, modulY), programm->katalog.ElementTab(programm->anlage.XY(modulX, modulY).XY_Element).Bmp);
        menusFrei();
        QVERIFY(!win->schnittstelle().istOffen());
        QVERIFY(!QApplication::overrideCursor());
    }

    void AbbruchEndsTheRun()
    {
        modul(modulX, modulY)->stumm = true;
        int prompts = 0;
        Antworten antworten({{QStringLiteral("Meldung"), meldungOk},
                             {QStringLiteral("PultFehlMeldung_Form"), [&](QWidget* form) {
                                  ++prompts;
                                  knopf(form, 2);
                              }}});
        aktion("ProgMenu(1)")->trigger();
        QCOMPARE(prompts, 1);
        QCOMPARE(info("InfoTxt2"), QStringLiteral("X: %1 Y: %2").arg(modulX).arg(modulY));
        QVERIFY(!info("InfoTxt1").endsWith(QStringLiteral("Programmierung beendet !!!")));
        menusFrei();
        QVERIFY(!QApplication::overrideCursor());
    }

    void ModulEinzelnProgramsTheClickedCell()
    {
        SimModul* m = modul(modulX, modulY);
        m->werkseinstellung();
        Antworten antworten({{QStringLiteral("Meldung"), meldungOk}});
        Qt::CursorShape zeiger = Qt::ArrowCursor;
        bool geklickt = false;
        auto* klick = new QTimer(&wartende());
        connect(klick, &QTimer::timeout, this, [&, klick] {
            if (!win->ProgAuswWartet)
                return;
            klick->stop();
            ZellenGrid* pult = win->bereich().Pult;
            zeiger = pult->cursor().shape();
            const QModelIndex i = pult->model()->index(modulY - 1, modulX - 1);
            pult->scrollTo(i);
            QTest::mouseClick(pult->viewport(), Qt::LeftButton, {}, pult->visualRect(i).center());
            geklickt = true;
        });
        klick->start(10);
        aktion("ProgMenu(2)")->trigger();
        QVERIFY(geklickt);
        QCOMPARE(zeiger, Qt::WhatsThisCursor);
        QVERIFY(!win->ProgAuswWartet);
        QVERIFY(info("InfoTxt1").endsWith(QStringLiteral("Programmierung beendet !!!")));
        const XY_Typ& zelle = programm->anlage.XY(modulX, modulY);
        for (int i = 2; i <= 119; ++i)
            if (i != 16)
                QCOMPARE(m->lncv(i), quint16(zelle.XY_LNCV(i)));
        QCOMPARE(win->bereich().Pult->cursor().shape() == Qt::WhatsThisCursor, false);
        menusFrei();
    }

    void TheMenuSwitchesToView1First()
    {
        win->EditMode_Click(3);
        QCOMPARE(win->EditMode, 3);
        bool gefragt = false;
        Antworten antworten({{QStringLiteral("Meldung"), [&](QWidget* w) {
                                  gefragt = true;
                                  QTest::mouseClick(static_cast<QMessageBox*>(w)->button(QMessageBox::Cancel),
                                                    Qt::LeftButton);
                              }}});
        aktion("ProgMenu(1)")->trigger();
        QVERIFY(gefragt);
        QCOMPARE(win->EditMode, 1);
        menusFrei();
        QVERIFY(!win->schnittstelle().istOffen());
    }

    // Last: the main window goes.
    void ClosingTheWindowGivesUpThePick()
    {
        QApplication::setQuitOnLastWindowClosed(false);
        programm->anlage.PultGeaendert = 0;
        Antworten antworten({{QStringLiteral("Meldung"), meldungOk}});
        auto* schliessen = new QTimer(&wartende());
        connect(schliessen, &QTimer::timeout, this, [this, schliessen] {
            if (!win->ProgAuswWartet)
                return;
            schliessen->stop();
            win->close();
        });
        schliessen->start(10);
        aktion("ProgMenu(2)")->trigger();
        QVERIFY(!win->isVisible());
        QVERIFY(!win->ProgAuswWartet);
        QVERIFY(!win->ProgAuswFertig);
        QVERIFY(!info("InfoTxt1").endsWith(QStringLiteral("Programmierung beendet !!!")));
        QVERIFY(!QApplication::overrideCursor());
    }

private:
    // Every picture a cell took while the plan was being worked on.
    struct Markierungen {
        explicit Markierungen(TstProgrammieren& t)
        {
            PultModell& modell = t.win->bereich().pultModell();
            verbindung = QObject::connect(&modell, &QAbstractItemModel::dataChanged, [this, &modell](
                                                                                         const QModelIndex& a,
                                                                                         const QModelIndex& b) {
                for (int r = a.row(); r <= b.row(); ++r)
                    for (int c = a.column(); c <= b.column(); ++c) {
                        const QString bild = modell.index(r, c).data(BildRolle).toString();
                        alle << bild;
                        if (bild.endsWith(QStringLiteral("_ausw.bmp")))
                            bilder.insert(zellSchluessel(c + 1, r + 1), bild);
                    }
            });
        }
        ~Markierungen() { QObject::disconnect(verbindung); }
        QMetaObject::Connection verbindung;
        QHash<QString, QString> bilder;
        QStringList alle;
    };

    static QString zellSchluessel(int x, int y) { return QStringLiteral("%1,%2").arg(x).arg(y); }

    QAction* aktion(const char* name) const { return win->findChild<QAction*>(QLatin1String(name)); }
    QString info(const char* name) const { return win->findChild<QLabel*>(QLatin1String(name))->text(); }
    QString bild(int x, int y) const
    {
        return win->bereich().pultModell().index(y - 1, x - 1).data(BildRolle).toString();
    }
    SimModul* modul(int x, int y) const
    {
        const XY_Typ& zelle = programm->anlage.XY(x, y);
        // The simulated modules come with the first opening of the port, so a
        // slot run on its own opens it here.
        if (!simulator->geraete().modul(zelle.XY_ArtNr, zelle.XY_LNCV(0))) {
            Long err = 0;
            win->schnittstelle().open_com(err);
        }
        return simulator->geraete().modul(zelle.XY_ArtNr, zelle.XY_LNCV(0));
    }
    void menusFrei() const
    {
        QVERIFY(aktion("ProgHauptMenu")->isEnabled());
        QVERIFY(aktion("AuslHauptMenu")->isEnabled());
        QVERIFY(aktion("OptionHauptMenu")->isEnabled());
    }

    int modulX = 0, modulY = 0;
};

QTEST_MAIN(TstProgrammieren)
#include "tst_programmieren.moc"
