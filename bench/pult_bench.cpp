// Benchmark: fills a 99×99 panel through the editor and repaints the whole
// plan grid, page by page, as scrolling over it would. Prints the times.
//   planor-bench-pult [KT_Conf-Ordner]
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/programmordner.h"
#include "core/ui/meldungs_box.h"
#include "editor/pult_editor.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QScrollBar>

#include <cstdio>

using namespace planor;

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QString konfPfad = argc > 1 ? QString::fromLocal8Bit(argv[1]) + u'/' : KonfPfad();

    Anlage anlage;
    Elementkatalog katalog;
    try {
        Elemente_laden(konfPfad + QStringLiteral("Elemente.cfg"), katalog, anlage);
    } catch (const Laufzeitfehler& f) {
        std::fprintf(stderr, "Elemente.cfg: %s\n", qPrintable(f.beschreibung()));
        return 1;
    }
    MeldungsBox meldungen;
    PultEditor editor(anlage, katalog, meldungen);
    PultBereich bereich(anlage, katalog, editor, konfPfad);
    bereich.resize(1600, 1000);
    bereich.show();

    anlage.DimensionenX = anlage.DimensionenY = MaxDimension;
    anlage.neues_pult_setzen();
    bereich.init_flexgrid();

    // Every drawable element in turn, as a dense plan would hold them.
    std::vector<int> elemente;
    for (int i = 1; i <= katalog.ElementAnz; ++i)
        if (katalog.ElementTab(i).Typ > 0)
            elemente.push_back(i);

    QElapsedTimer uhr;
    uhr.start();
    std::size_t n = 0;
    for (int x = 1; x <= MaxDimension; ++x)
        for (int y = 1; y <= MaxDimension; ++y) {
            editor.setzeAktuell(x, y);
            editor.SetzePultElement(elemente[n++ % elemente.size()]);
        }
    const double fuellen = uhr.nsecsElapsed() / 1e6;

    // The grid takes its new size (and scroll range) from the event loop.
    QCoreApplication::processEvents();
    ZellenGrid* pult = bereich.Pult;
    QImage bild(pult->viewport()->size(), QImage::Format_RGB32);
    auto seitenMalen = [&] {
        int seiten = 0;
        for (int v = 0; v <= pult->verticalScrollBar()->maximum(); v += pult->viewport()->height())
            for (int h = 0; h <= pult->horizontalScrollBar()->maximum(); h += pult->viewport()->width()) {
                pult->verticalScrollBar()->setValue(v);
                pult->horizontalScrollBar()->setValue(h);
                QPainter p(&bild);
                pult->viewport()->render(&p);
                ++seiten;
            }
        return seiten;
    };
    seitenMalen();  // the first pass loads the bitmaps
    uhr.restart();
    const int seiten = seitenMalen();
    const double malen = uhr.nsecsElapsed() / 1e6;

    std::printf("Pult 99x99: %zu Zellen gesetzt in %.1f ms (%.2f us je Zelle)\n", n, fuellen, fuellen * 1000 / n);
    std::printf("Pult 99x99: %d Bildschirmseiten (%dx%d) neu gemalt in %.1f ms (%.2f ms je Seite)\n", seiten,
                pult->viewport()->width(), pult->viewport()->height(), malen, malen / seiten);
    return 0;
}
