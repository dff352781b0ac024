#include "editor/FormNuevasVariables.h"

#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

#include "base/failure_trap.h"
#include "base/qt/lists.h"
#include "base/qt/text_boxes.h"
#include "base/words.h"

namespace qor {

namespace {

constexpr int paginaDeAyuda = 705;

}  // namespace

FormNuevasVariables::FormNuevasVariables(Ventana& ventana, NavegadorDeBAPIs navegador, const AbrirAyuda& ayuda, QWidget* padre)
    : Dialogo(ventana.textos, "FormNuevasVariables", padre),
      ventana_(ventana),
      navegador_(std::move(navegador)),
      estado_(AbrirDefiniciones(ventana)) {
    setWindowTitle(Rotulo(151));
    CrearControles(ayuda);
    Mostrar();
    PonerTamano(115, 32);
    Vars_->setFocus();
}

void FormNuevasVariables::IrA(int definicion, int linea) {
    if (definicion >= ListaDefiniciones_->count()) return;
    ListaDefiniciones_->setCurrentRow(definicion);
    Vars_->IrALinea(linea);
}

void FormNuevasVariables::CrearControles(const AbrirAyuda& ayuda) {
    ListaDefiniciones_ = new QListWidget(this);
    ListaDefiniciones_->setObjectName(QStringLiteral("ListaDefiniciones"));
    ListaDefiniciones_->setAccessibleName(Rotulo(151));
    Vars_ = new CajaDeTexto(this);
    Vars_->setObjectName(QStringLiteral("Vars"));
    Vars_->setAccessibleName(Rotulo(163));
    Vars_->MostrarComoABAP();
    auto* const InsertBAPIButton = NuevoBoton("InsertBAPIButton", Rotulo(162));
    InsertBAPIButton->setEnabled(static_cast<bool>(navegador_));
    auto* const LimpiarBoton = NuevoBoton("Limpiar", Rotulo(152));
    auto* const Ayuda = NuevaAyuda("Ayuda", Rotulo(153), ayuda, paginaDeAyuda);
    auto* const OKButton = NuevoBoton("OKButton", Palabra(palabra::Aceptar));
    OKButton->setDefault(true);

    connect(ListaDefiniciones_, &QListWidget::currentRowChanged, this, [this](int fila) {
        if (mostrando_ || fila < 0) return;
        SeleccionarDefinicion(ventana_, estado_, fila);
        Mostrar();
    });
    connect(Vars_, &QPlainTextEdit::textChanged, this, [this] {
        if (!mostrando_) CambiarVars(ventana_, estado_, Vars_->Texto());
    });
    connect(InsertBAPIButton, &QPushButton::clicked, this, [this] {
        navegador_(this);
        estado_ = AbrirDefiniciones(ventana_);
        Mostrar();
    });
    connect(LimpiarBoton, &QPushButton::clicked, this, [this] {
        ConTrampa(ventana_.vista, [this] { Limpiar(ventana_, estado_); });
        Mostrar();
    });
    connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);

    auto* const partes = new QSplitter(this);
    partes->setChildrenCollapsible(false);
    partes->addWidget(ListaDefiniciones_);
    partes->addWidget(Vars_);
    ListaDefiniciones_->setMinimumWidth(AnchoDeLetras(40));
    partes->setStretchFactor(1, 1);
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(partes, 1);
    orden->addLayout(FilaDeBotones({InsertBAPIButton, LimpiarBoton, Ayuda, OKButton}, 3));
}

void FormNuevasVariables::Mostrar() {
    const bool antes = std::exchange(mostrando_, true);
    PonerLista(*ListaDefiniciones_, estado_.ListaDefiniciones, estado_.seleccion);
    Vars_->PonerTexto(estado_.Vars);
    mostrando_ = antes;
}

}  // namespace qor
