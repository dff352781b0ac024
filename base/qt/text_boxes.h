#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>
#include <functional>
#include <string>
#include <string_view>

namespace qor {

// What becomes of the characters that a user types or pastes; texts are windows-1252. A character that is dropped is missing in the
// answer.
using FiltroDeTexto = std::function<std::string(std::string_view)>;

// A box of one line whose text passes through a filter before it is there. No box takes a double quote, filter or not.
class CajaDeLinea : public QLineEdit {
    Q_OBJECT
public:
    explicit CajaDeLinea(QWidget* padre = nullptr);

    void PonerFiltro(FiltroDeTexto filtro) { filtro_ = std::move(filtro); }

    std::string Texto() const;
    // Sets the text without passing it through the filter. `textChanged` comes as always.
    void PonerTexto(std::string_view texto);
    // The text of the clipboard, in the place of the selection.
    void PegarDelPortapapeles();

protected:
    // What a user pastes or drops: its first line, filtered.
    virtual void Pegar(const QString& texto);

    void keyPressEvent(QKeyEvent* evento) override;
    void inputMethodEvent(QInputMethodEvent* evento) override;
    void dropEvent(QDropEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void contextMenuEvent(QContextMenuEvent* evento) override;

    // What a user puts in, filtered, in the place of the selection.
    void Insertar(const QString& texto);

private:
    FiltroDeTexto filtro_;
};

// The same with several lines. The model's line end is CR LF.
class CajaDeTexto : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit CajaDeTexto(QWidget* padre = nullptr);

    void PonerFiltro(FiltroDeTexto filtro) { filtro_ = std::move(filtro); }

    // A fixed font, and quiet colours for ABAP.
    void MostrarComoABAP();

    std::string Texto() const;
    void PonerTexto(std::string_view texto);
    // Takes the focus, with the cursor at a line, counted from 1, which is set off until the text changes. Without a line, or with
    // one that isn't there, the box takes the focus alone.
    void IrALinea(int linea);

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void insertFromMimeData(const QMimeData* origen) override;

private:
    std::string Filtrar(const QString& texto) const;
    void SenalarLinea();

    FiltroDeTexto filtro_;
};

}  // namespace qor
