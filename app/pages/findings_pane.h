#pragma once

#include <QPointer>
#include <QTreeView>

#include "app/findings_watch.h"
#include "app/pages/closable_pane.h"
#include "app/pages/findings_model.h"

class QLabel;

namespace qor {

// The list of the pane. Enter and a double click activate a finding; Esc leaves the list.
class ListaDeHallazgos : public QTreeView {
    Q_OBJECT
public:
    explicit ListaDeHallazgos(QWidget* padre);

signals:
    void Abandonada();

protected:
    void keyPressEvent(QKeyEvent* evento) override;
};

// The pane "Findings": how many there are of each severity, the list of them, and the whole sentence of the selected one. It shows
// what it is given and tells what a user does with it.
class PanelDeHallazgos : public PanelQueSeCierra {
    Q_OBJECT
public:
    PanelDeHallazgos(const TextosIdioma& textos, QWidget* padre);

    // The finding that was selected stays so where it is still there, and so does what is seen of the list.
    void Mostrar(const VigiaDeHallazgos& vigia);
    void RefrescarIdioma();

    // The finding that is selected; -1 for none.
    int Elegido() const;
    void Elegir(int hallazgo);
    // Gives the focus to the control that had it before the pane.
    void DevolverFoco();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void Activado(int hallazgo);

private:
    int AltoDeLista(int lineas) const;
    int AltoCon(int lineas) const;
    void PonerCuenta();
    void AjustarColumnas();
    void MostrarElegido();

    const TextosIdioma& textos_;
    CuentaDeHallazgos cuenta_;
    bool completo_ = true;
    ModeloDeHallazgos* modelo_;
    ListaDeHallazgos* lista_;
    QLabel* elegido_;
    QPointer<QWidget> antes_;  // what had the focus before the pane
};

}  // namespace qor
