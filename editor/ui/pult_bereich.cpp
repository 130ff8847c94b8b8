#include "editor/ui/pult_bereich.h"

#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "editor/palette_modell.h"
#include "editor/pult_editor.h"
#include "editor/mon_modell.h"
#include "editor/pult_modell.h"
#include "editor/ui/zellen_grid.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QVBoxLayout>

namespace planor {

namespace {

// PultAdr: three grid rows a panel row, 54, 13 and 13 pixels high.
class PultAdrGrid final : public ZellenGrid {
public:
    using ZellenGrid::ZellenGrid;

    void masseAnwenden() override
    {
        ZellenGrid::masseAnwenden();
        for (int r = 0; model() && r < model()->rowCount(); ++r)
            verticalHeader()->resizeSection(r, r % 3 == 0 ? PultAdrModell::BildZeilenHoehe
                                                          : PultAdrModell::TextZeilenHoehe);
    }

protected:
    int panelZeile(int modellZeile) const override { return modellZeile / 3 + 1; }
};

}  // namespace

PultBereich::PultBereich(Anlage& anlage, const Elementkatalog& katalog, PultEditor& editor,
                         const QString& konfPfad, QWidget* parent)
    : QWidget(parent)
    , bilder_(konfPfad)
    , Pult(new ZellenGrid(QStringLiteral("Pult"), QStringLiteral("Y/X"), {30, 20, FeldBreite, FeldHoehe}, bilder_, this))
    , PultAdr(new PultAdrGrid(QStringLiteral("PultAdr"), QStringLiteral("  Y / X"), {90, 20, FeldBreite, FeldHoehe},
                              bilder_, this))
    , Mon(new ZellenGrid(QStringLiteral("Mon"), QStringLiteral("Y/X"), {30, 20, 40, 25}, bilder_, this))
    , Elemente(new QTableView(this))
    , Logo(new QLabel(this))
    , pultModell_(new PultModell(anlage, katalog, this))
    , pultAdrModell_(new PultAdrModell(anlage, katalog, this))
    , monModell_(new MonModell(anlage, katalog, this))
    , paletteModell_(new PaletteModell(katalog, this))
    , links_(new QWidget(this))
{
    Pult->setModel(pultModell_);
    // The address rows are 13 pixels high: their labels need a small font.
    QFont klein = PultAdr->verticalHeader()->font();
    klein.setPixelSize(10);
    PultAdr->verticalHeader()->setFont(klein);
    PultAdr->setModel(pultAdrModell_);
    Mon->setModel(monModell_);

    Elemente->setObjectName(QStringLiteral("Elemente"));
    Elemente->setModel(paletteModell_);
    Elemente->setItemDelegate(new ZellenDelegate(bilder_, Elemente));
    Elemente->horizontalHeader()->hide();
    Elemente->verticalHeader()->hide();
    Elemente->horizontalHeader()->setDefaultSectionSize(FeldBreite + 3);
    Elemente->verticalHeader()->setDefaultSectionSize(FeldHoehe);
    Elemente->setSelectionMode(QAbstractItemView::SingleSelection);
    Elemente->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Elemente->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Elemente->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Elemente->setFixedWidth(PaletteSpalten * (FeldBreite + 3) + 2 * Elemente->frameWidth());
    connect(Elemente, &QTableView::clicked, this, [this](const QModelIndex& index) {
        const int element = index.data(Qt::UserRole).toInt();
        if (element != 0)
            emit elementGewaehlt(element);
    });

    Logo->setObjectName(QStringLiteral("Logo"));
    Logo->setText(QStringLiteral("<div style='font-size:22pt;font-weight:bold;color:#1d4f91'>NAVIK/TOBRA</div>"
                                 "<div style='font-size:16pt;color:#555'>Planor</div>"));
    Logo->setAlignment(Qt::AlignCenter);

    auto* linksLayout = new QVBoxLayout(links_);
    linksLayout->setContentsMargins(0, 0, 0, 0);
    linksLayout->addWidget(Elemente);
    linksLayout->addWidget(Logo);
    linksLayout->addStretch();

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    // The plan stands 100 twips right of the palette.
    layout->setSpacing(100 / 15);
    layout->addWidget(links_);
    for (ZellenGrid* grid : {Pult, PultAdr, Mon})
        layout->addWidget(grid, 1);
    PultAdr->hide();
    Mon->hide();

    connect(&editor, &PultEditor::zelleGeaendert, this, [this](int x, int y) {
        pultModell_->zelleNeu(x, y);
        pultAdrModell_->zelleNeu(x, y);
        monModell_->zelleNeu(x, y);
    });
    // Moving the current cell leaves the selection as the user drew it.
    connect(&editor, &PultEditor::aktuellGeaendert, this, [this](int x, int y) {
        Pult->selectionModel()->setCurrentIndex(pultModell_->index(y - 1, x - 1), QItemSelectionModel::NoUpdate);
    });
}

void PultBereich::paletteAufbauen()
{
    paletteModell_->neuAufbauen();
    Elemente->setFixedHeight(paletteModell_->rowCount() * FeldHoehe + 2 * Elemente->frameWidth());
}

void PultBereich::init_flexgrid()
{
    pultModell_->init_flexgrid();
    pultAdrModell_->init_flexgrid();
    monModell_->init_flexgrid();
    for (ZellenGrid* grid : {Pult, PultAdr, Mon})
        grid->masseAnwenden();
}

void PultBereich::paletteZeigen(bool sichtbar)
{
    links_->setVisible(sichtbar);
}

}  // namespace planor
