#pragma once

#include <QSplitter>

namespace qor {

// The main form's pages with two panes side by side below them. The panes take what the pages don't need, at most a third of the
// window, and keep the height that a user gives them. The second one is seen only where there is room for it that the pages leave.
class DivisionConPaneles : public QSplitter {
    Q_OBJECT
public:
    DivisionConPaneles(QWidget* paginas, QWidget* primero, QWidget* segundo, QWidget* padre);

    void MostrarPrimero(bool pedido);
    void MostrarSegundo(bool pedido);
    // Of the panes, as the user has left it; 0 for their own.
    int Alto() const { return alto_; }
    void PonerAlto(int alto) { alto_ = alto; }

protected:
    void resizeEvent(QResizeEvent* evento) override;

private:
    void Acomodar();
    // What the pages leave of the height.
    int Libre() const;

    QWidget* primero_;
    QWidget* segundo_;
    QSplitter* paneles_;
    bool segundoPedido_ = false;
    int alto_ = 0;
};

}  // namespace qor
