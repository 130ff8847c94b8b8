#include "editor/pult_editor.h"

#include "config/clear_modul.h"
#include "core/benutzer.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "station/bhf_loeschen.h"
#include "universal/universal_zellen.h"

#include <QFile>

namespace planor {

PultEditor::PultEditor(Anlage& anlage, const Elementkatalog& katalog, Benutzer& benutzer, QObject* parent)
    : QObject(parent)
    , anlage_(anlage)
    , katalog_(katalog)
    , benutzer_(benutzer)
    , XY_Clip_(std::make_unique<Feld2<XY_Typ, MaxClip, MaxClip>>())
{
}

int PultEditor::typ(int index) const { return katalog_.ElementTab(index).Typ; }

int PultEditor::zellTyp(int x, int y) const { return typ(anlage_.XY(x, y).XY_Element); }

void PultEditor::setzeAktuell(int x, int y)
{
    if (x == aktX_ && y == aktY_)
        return;
    aktX_ = x;
    aktY_ = y;
    emit aktuellGeaendert(x, y);
}

void PultEditor::SetzePultElement(int index)
{
    geschuetzt("Funktionen : SetzePultElement", [&] {
        const int x = aktX_, y = aktY_;
        XY_Typ& zelle = anlage_.XY(x, y);
        XY_Alt = zelle;
        const int t = typ(index);
        if (t > 0) {
            anlage_.PultGeaendert = 1;
            zelle = anlage_.XY_Leer();
            zelle.XY_Element = static_cast<Integer>(index);
            SetzeText(x, y);
            LNCV_uebernehmen(x, y);
        } else if (t == TypRadierer) {
            anlage_.PultGeaendert = 1;
            UndoElement = zelle.XY_Element;
            XY_Undo = zelle;
            UndoX = x;
            UndoY = y;
            UndoGueltig = -1;
            emit undoMenuFreigeben(true);
            Element_Loeschen(x, y);
            LNCV_uebernehmen(x, y);
        }
    });
}

void PultEditor::elementSetzen(int x, int y, int index)
{
    setzeAktuell(x, y);
    SetzePultElement(index);
}

void PultEditor::SetzeText(int x, int y)
{
    // Coordinates beyond the panel's size are ignored.
    if (x < 1 || y < 1 || x > anlage_.DimensionenX || y > anlage_.DimensionenY)
        return;
    emit zelleGeaendert(x, y);
}

void PultEditor::LNCV_uebernehmen(int x, int y)
{
    // The new cell takes the old values only when it is the same module; a
    // cell set from the template never is, so placing and rotating lose them.
    geschuetzt("Funktionen : LNCV_uebernehmen", [&] {
        XY_Typ& zelle = anlage_.XY(x, y);
        if (XY_Alt.XY_ArtNr != 0 && XY_Alt.XY_ArtNr == zelle.XY_ArtNr) {
            zelle.XY_LNCV = XY_Alt.XY_LNCV;
            zelle.XY_Version = XY_Alt.XY_Version;
        }
    });
}

void PultEditor::Elemente_Click(int index)
{
    geschuetzt("MainWin : Elemente_Click", [&] {
        const ElementTab_Typ& e = katalog_.ElementTab(index);
        ElementAusw = static_cast<Integer>(index);
        emit infoText(2, QStringLiteral(" Auswahl: ") + e.Name);
        MarkenMode = e.Typ == TypAuswahl;
        zeiger = e.Typ == TypRadierer ? PultZeiger::Radierer : e.Typ == TypAuswahl ? PultZeiger::Pfeil : PultZeiger::Kreuz;
    });
}

void PultEditor::Pult_LinksKlick(int x, int y)
{
    geschuetzt("MainWin : Pult_MouseDown", [&] {
        // With the selection tool the grid itself makes the selection.
        if (typ(ElementAusw) == TypAuswahl)
            return;
        setzeAktuell(x, y);
        const XY_Typ& zelle = anlage_.XY(x, y);
        if (zellTyp(x, y) >= 800) {
            // A click on a module configures it; nothing is placed over it.
            AuswX = x;
            AuswY = y;
            emit modulKonfigurieren(x, y, zelle.XY_BETR);
        } else {
            SetzePultElement(ElementAusw);
        }
        const ElementTab_Typ& e = katalog_.ElementTab(anlage_.XY(x, y).XY_Element);
        emit infoText(2, (e.Typ < 1 ? QString() : e.Name) + QStringLiteral("  :  X: ") + QString::number(x)
                             + QStringLiteral(" - Y: ") + QString::number(y));
        EleDrehenMoeglich = anlage_.XY(x, y).XY_Element != katalog_.LeerIndex;
    });
}

void PultEditor::Pult_RechtsKlick(int x, int y)
{
    geschuetzt("MainWin : Pult_MouseUp", [&] {
        setzeAktuell(x, y);
        EleDrehenMoeglich = anlage_.XY(x, y).XY_Element != katalog_.LeerIndex;
        if (EleDrehenMoeglich)
            ElementDrehen();
    });
}

void PultEditor::Pult_Auswahl(int x1, int y1, int x2, int y2)
{
    MarkAktiv = x1 != x2 || y1 != y2;
    if (!MarkAktiv)
        return;
    MarkX = std::min(x1, x2);
    MarkY = std::min(y1, y2);
    MarkBreite = std::abs(x2 - x1);
    MarkHoehe = std::abs(y2 - y1);
}

void PultEditor::Cntrl_C_X(int taste)
{
    geschuetzt("MainWin : Cntrl_C_X", [&] {
        if (!MarkAktiv)
            return;
        for (int i = 0; i <= MarkBreite; ++i)
            for (int j = 0; j <= MarkHoehe; ++j)
                XY_Clip(i, j) = anlage_.XY(MarkX + i, MarkY + j);
        ClipVoll = true;
        ClipBreite = MarkBreite;
        ClipHoehe = MarkHoehe;
        if (taste == TasteX) {
            anlage_.PultGeaendert = 1;
            for (int i = 0; i <= MarkBreite; ++i)
                for (int j = 0; j <= MarkHoehe; ++j)
                    Element_Loeschen(MarkX + i, MarkY + j);
        }
    });
}

void PultEditor::Cntrl_V()
{
    geschuetzt("MainWin : Cntrl_V", [&] {
        if (!ClipVoll)
            return;
        const int x = aktX_, y = aktY_;
        if (x + ClipBreite > anlage_.DimensionenX || y + ClipHoehe > anlage_.DimensionenY) {
            benutzer_.meldung(QStringLiteral("Fehler beim Einsetzen"),
                              QStringLiteral("Der gespeicherter Teil kann hier nicht eingesetzt werden,\n"
                                             "         da er zu groß für diese Position ist!          "),
                              Symbol::Kritisch);
            return;
        }
        for (int i = 0; i <= ClipBreite; ++i) {
            for (int j = 0; j <= ClipHoehe; ++j) {
                setzeAktuell(x + i, y + j);
                const XY_Typ& quelle = XY_Clip(i, j);
                SetzePultElement(quelle.XY_Element);
                // Addresses and module data come along; the old cell is not
                // deleted first, so its side file stays.
                const int t = typ(quelle.XY_Element);
                if ((t > 100 && t < 899) || t == 920)
                    anlage_.XY(x + i, y + j) = quelle;
                SetzeText(x + i, y + j);
            }
        }
    });
}

void PultEditor::Cntrl_Z()
{
    geschuetzt("MainWin : Cntrl_Z", [&] {
        if (!UndoGueltig)
            return;
        const int x = aktX_, y = aktY_;
        setzeAktuell(UndoX, UndoY);
        SetzePultElement(UndoElement);
        anlage_.XY(UndoX, UndoY) = XY_Undo;
        SetzeText(UndoX, UndoY);
        setzeAktuell(x, y);
        UndoGueltig = 0;
        emit undoMenuFreigeben(false);
    });
}

void PultEditor::ElementDrehen()
{
    geschuetzt("MainWin : ElementDrehen", [&] {
        const int e = anlage_.XY(aktX_, aktY_).XY_Element;
        const int h0 = katalog_.indexVonTyp(katalog_.ElementTab(e).Familie);
        const ElementTab_Typ& kopf = katalog_.ElementTab(h0 < 0 ? e : h0);
        int stelle = 0;
        for (int i = 1; i <= MaxDrehung; ++i) {
            if (kopf.Drehung(i) == e) {
                stelle = i;
                break;
            }
        }
        int neu = kopf.Drehung(stelle + 1);
        if (neu == DrehungEnde)
            neu = kopf.Drehung(0);
        SetzePultElement(neu);
    });
}

void PultEditor::Element_Loeschen(int x, int y)
{
    geschuetzt("Funktionen : Element_Loeschen", [&] {
        XY_Typ& zelle = anlage_.XY(x, y);
        if ((zelle.XY_BETR == 7 || zelle.XY_BETR == 8) && zelle.XY_BhfIDX != 0)
            Clr_Bhf(anlage_, *this, zelle.XY_BhfIDX);

        if (zelle.XY_SenStat == 3)
            Universal_Hauptzelle_weitergeben(anlage_, x, y);

        if (zelle.XY_BETR >= 4 && zelle.XY_BETR <= 8)
            Clear_Modul(anlage_, *this, x, y);

        const Long artNr = zelle.XY_ArtNr;
        const Integer adresse = zelle.XY_LNCV(0);
        zelle = anlage_.XY_Leer();
        SetzeText(x, y);

        // A missing side file is no error. Without a project folder there is
        // no side file, and nothing outside the project is ever deleted.
        if (!anlage_.Pfad.isEmpty())
            QFile::remove(anlage_.Pfad + QString::number(artNr) + u'_' + QString::number(adresse)
                          + QStringLiteral(".lcv"));
    });
}

}  // namespace planor
