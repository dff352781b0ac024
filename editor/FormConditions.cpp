#include "editor/FormConditions.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "base/failure_trap.h"
#include "base/key_filters.h"
#include "base/qt/lists.h"
#include "base/qt/text_boxes.h"
#include "base/words.h"

namespace qor {

namespace {

constexpr int paginaDeAyuda = 722;

}  // namespace

FormConditions::FormConditions(Ventana& ventana, const AbrirAyuda& ayuda, QWidget* padre)
    : Dialogo(ventana.textos, "FormConditions", padre), ventana_(ventana), estado_(AbrirCondiciones(ventana)) {
    setWindowTitle(Rotulo(114));
    CrearControles(ayuda);
    Mostrar();
    Escuchar();
    PonerTamano(110, 28);
    Nuevo_->setFocus();
}

void FormConditions::IrA(int condicion, int linea) {
    if (condicion >= ListaCondiciones_->count()) return;
    ListaCondiciones_->setCurrentRow(condicion);
    linea > 0 ? Condicional_->IrALinea(linea) : ListaCondiciones_->setFocus();
}

void FormConditions::CrearControles(const AbrirAyuda& ayuda) {
    Nuevo_ = new CajaDeLinea(this);
    Nuevo_->setObjectName(QStringLiteral("Nuevo"));
    Nuevo_->PonerFiltro([](std::string_view texto) { return FiltrarTexto("Nuevo", texto); });
    Agregar_ = NuevoBoton("Agregar", Rotulo(116));
    ListaCondiciones_ = new QListWidget(this);
    ListaCondiciones_->setObjectName(QStringLiteral("ListaCondiciones"));
    ListaCondiciones_->setAccessibleName(Rotulo(114));
    Borrar_ = NuevoBoton("Borrar", Rotulo(117));
    Condicional_ = new CajaDeTexto(this);
    Condicional_->setObjectName(QStringLiteral("Condicional"));
    Condicional_->MostrarComoABAP();
    Condicional_->PonerFiltro([this](std::string_view texto) {
        const bool pasa = FiltrarTeclaDeCondicional(ventana_, estado_, texto.front()) != teclaDescartada;
        return pasa ? std::string(texto) : std::string();
    });
    auto* const CondicionesButton = NuevaAyuda("CondicionesButton", Rotulo(132), ayuda, paginaDeAyuda);
    OK_ = NuevoBoton("OK", Palabra(palabra::Aceptar));
    OK_->setDefault(true);
    connect(OK_, &QPushButton::clicked, this, &QDialog::accept);

    auto* const rejilla = new QGridLayout;
    rejilla->addWidget(NuevoRotulo("NuevoLabel", Rotulo(115), Nuevo_), 0, 0, 1, 2);
    rejilla->addWidget(Nuevo_, 1, 0);
    rejilla->addWidget(Agregar_, 1, 1);
    rejilla->addWidget(ListaCondiciones_, 2, 0);
    rejilla->addWidget(Borrar_, 2, 1, Qt::AlignTop);
    auto* const rotuloDelTexto = NuevaExplicacion("CondicionalLabel", Rotulo(118));
    rotuloDelTexto->setBuddy(Condicional_);
    rejilla->addWidget(rotuloDelTexto, 0, 2, 2, 1, Qt::AlignBottom);
    rejilla->addWidget(Condicional_, 2, 2);
    rejilla->addWidget(NuevaExplicacion("ReferenciaLabel", Rotulo(105)), 3, 0, 1, 3);
    rejilla->setColumnStretch(0, 2);
    rejilla->setColumnStretch(2, 5);
    rejilla->setRowStretch(2, 1);
    auto* const orden = new QVBoxLayout(this);
    orden->addLayout(rejilla);
    orden->addLayout(FilaDeBotones({CondicionesButton, OK_}, 1));
}

void FormConditions::Escuchar() {
    Nuevo_->installEventFilter(this);
    connect(Nuevo_, &QLineEdit::textChanged, this, [this] { estado_.Nuevo = Nuevo_->Texto(); });
    connect(Agregar_, &QPushButton::clicked, this, [this] {
        ConTrampa(ventana_.vista, [this] { AgregarCondicion(ventana_, estado_); });
        Mostrar();
    });
    connect(Borrar_, &QPushButton::clicked, this, [this] {
        ConTrampa(ventana_.vista, [this] { BorrarCondicion(ventana_, estado_); });
        Mostrar();
    });
    connect(ListaCondiciones_, &QListWidget::currentRowChanged, this, [this](int fila) {
        if (mostrando_ || fila < 0) return;
        SeleccionarCondicion(ventana_, estado_, fila);
        Mostrar();
    });
    connect(Condicional_, &QPlainTextEdit::textChanged, this, [this] {
        if (!mostrando_) CambiarCondicional(ventana_, estado_, Condicional_->Texto());
    });
}

void FormConditions::Mostrar() {
    const bool antes = std::exchange(mostrando_, true);
    PonerLista(*ListaCondiciones_, estado_.ListaCondiciones, estado_.seleccion);
    Condicional_->PonerTexto(estado_.Condicional);
    Nuevo_->PonerTexto(estado_.Nuevo);
    Borrar_->setEnabled(estado_.seleccion >= 0);
    mostrando_ = antes;
}

bool FormConditions::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == Nuevo_ && evento->type() == QEvent::FocusIn) {
        Agregar_->setDefault(true);
        // Behind the click that may have brought the focus, which would clear the selection.
        QTimer::singleShot(0, Nuevo_, &QLineEdit::selectAll);
    }
    if (objeto == Nuevo_ && evento->type() == QEvent::FocusOut) OK_->setDefault(true);
    return Dialogo::eventFilter(objeto, evento);
}

}  // namespace qor
