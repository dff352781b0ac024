#pragma once

#include <QLabel>
#include <QPoint>
#include <optional>

#include "base/qt/text_boxes.h"
#include "editor/cell_actions.h"
#include "editor/cell_keys.h"
#include "editor/window.h"

class QHelpEvent;
class QMimeData;

namespace qor {

// What is dragged onto a value cell.
QMimeData* DatosDeCampo(int lineaDeText1, const QString& nombre);
QMimeData* DatosDeOkCode(RotuloDeOkCode rotulo);

// A cell of the grids: a text box without a frame that tells what happens to it. It knows no rule.
class CeldaDeRejilla : public CajaDeLinea {
    Q_OBJECT
public:
    CeldaDeRejilla(LugarDeCelda lugar, QWidget* padre);

    LugarDeCelda Lugar() const { return lugar_; }
    // Sets the text as the editor has it, and whether its row is marked. A text that changes under the cursor is selected whole, as
    // on entering the cell; without the cursor a cell shows its text from the beginning, and no selection.
    void Sincronizar(const Celda& celda, bool marcada = false);
    // The selected text goes to the clipboard; the row where there is none, or the marked rows.
    void Copiar();
    // Asked before the backspace key does its work.
    void PonerFiltroDeRetroceso(std::function<bool()> admite) { admiteRetroceso_ = std::move(admite); }

signals:
    void Entrada();
    void EntradaEnMarcada();  // by the right button; the menu is for all marked rows
    void Salida();            // the focus went to a control that is no cell
    void Escrita();
    void Pulsada(qor::Tecla tecla);
    void PideDeshacer();
    void PideCopia();                       // of the row, or of the marked rows
    void PideBloque(const QString& texto);  // a block of cells was pasted
    void PideMenu(const QPoint& lugar);     // the context menu, at a point of the screen
    void DobleClic();
    void SoltadoCampo(int lineaDeText1);
    void SoltadoOkCode(qor::RotuloDeOkCode rotulo);

protected:
    bool event(QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void contextMenuEvent(QContextMenuEvent* evento) override;
    void Pegar(const QString& texto) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void dragEnterEvent(QDragEnterEvent* evento) override;
    void dragMoveEvent(QDragMoveEvent* evento) override;
    void dropEvent(QDropEvent* evento) override;

private:
    bool RecibeDeRejilla(const QMimeData* datos) const;
    void Arrastrar();
    bool MostrarEntero(const QHelpEvent& ayuda);

    LugarDeCelda lugar_;
    std::function<bool()> admiteRetroceso_;
    Color color_ = Color::Negro;
    bool marcada_ = false;
    bool sincronizando_ = false;
    bool seleccionarAlSoltar_ = false;  // the press of the mouse that brought the focus
    std::optional<QPoint> agarre_;      // where a drag of the name could begin
};

// A label that can be dragged onto a value cell.
class RotuloDeArrastre : public QLabel {
    Q_OBJECT
public:
    RotuloDeArrastre(RotuloDeOkCode rotulo, QWidget* padre);

protected:
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;

private:
    RotuloDeOkCode rotulo_;
    QPoint agarre_;
};

// The colour in which a cell shows its text; black is the palette's own.
QColor ColorDeTexto(Color color, const QPalette& paleta);

}  // namespace qor
