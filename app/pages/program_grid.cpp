#include "app/pages/program_grid.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"
#include "editor/option_rules.h"

namespace qor {

namespace {

// Widths of the columns of the program grid in twips, as shares of the room there is.
constexpr int anchoDeText6 = 1900;
constexpr int anchoDeText3 = 1800;
constexpr int anchoDeText4 = 2300;
constexpr int anchoDeText5 = 2600;

}  // namespace

PanelDePrograma::PanelDePrograma(const EntornoDePagina& entorno, const AccionesDeRejilla& acciones, QWidget* padre)
    : QWidget(padre), entorno_(entorno) {
    auto* const titulo = EnNegrita(Nuevo<QLabel>("TransactionSpecification", this));
    expandir_ = entorno_.lazos.Boton("ExpandirCampo", this, [this] { ClicExpandirCampo(entorno_.ventana); });
    expandir_->setFixedWidth(expandir_->fontMetrics().height() * 2);
    expandir_->setFixedHeight(AltoDeTitulo(*expandir_));
    auto* const rotulo = Nuevo<QLabel>("LineaTransaccionLabel", this);
    linea_ = Nuevo<RotuloDeLinea>("LineaTransaccion", this,
                                  [this] { entorno_.lazos.Hacer([this] { DobleClicLineaTransaccion(entorno_.ventana); }); });

    auto* const marco = Nuevo<MarcoDeRejilla>("RejillaTransaccion", this, [this](int filas) {
        entorno_.lazos.Hacer([&] { DesplazarTransaccion(entorno_.ventana, filas); });
    });
    columnas_ = marco->Orden();
    int columna = 0;
    for (const char* const cabecera : {"ProgramCol", "DynproCol", "FieldCol", "Col2Name"}) {
        columnas_->addWidget(ComoCabecera(Nuevo<QLabel>(cabecera, marco)), 0, columna++);
    }
    for (int i = 0; i < lineasTransaccion; ++i) {
        for (const Columna c : {Columna::Programa, Columna::Dynpro, Columna::Campo, Columna::Valor}) {
            celdas_.push_back(NuevaCelda(entorno_, {c, i}, marco, acciones.notas));
            columnas_->addWidget(celdas_.back(), i + 1, static_cast<int>(NumeroDeColumna(c)));
        }
        columnas_->setRowStretch(i + 1, 1);
    }
    barra_ = NuevaBarra(this, "BarraTransaccion", ultimaPrimeraFilaTransaccion, lineasTransaccion);
    connect(barra_, &QScrollBar::valueChanged, this, [this](int primera) {
        entorno_.lazos.Cambio(
            [&] { DesplazarTransaccion(entorno_.ventana, primera - entorno_.ventana.transaccion.PrimeraFilaTransaccion); });
    });

    signos_ = new MargenDeSignos("SignosTransaccion", this);
    signos_->PonerCeldas(CeldasPorLinea(celdas_, lineasTransaccion));

    auto* const orden = new QGridLayout(this);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->setHorizontalSpacing(3);
    orden->addWidget(titulo, 0, 0, 1, 2);
    orden->addWidget(expandir_, 0, 2);
    orden->addWidget(rotulo, 0, 3);
    orden->addWidget(linea_, 0, 4, 1, 2);
    orden->addWidget(signos_, 1, 0);
    orden->addWidget(marco, 1, 1, 1, 4);
    orden->addWidget(barra_, 1, 5);
    orden->setColumnStretch(1, 1);
    orden->setRowStretch(1, 1);
}

void PanelDePrograma::MostrarLineas() {
    const Ventana& ventana = entorno_.ventana;
    for (auto* const celda : celdas_) celda->Sincronizar(CeldaDe(ventana, celda->Lugar()));
    linea_->setText(QString::number(ventana.transaccion.LineaTransaccion));
    barra_->setValue(ventana.transaccion.PrimeraFilaTransaccion);
    signos_->MostrarDesde(ventana.transaccion.PrimeraFilaTransaccion);
    if (expandido_ != static_cast<int>(ventana.ExpandirCampo)) RepartirColumnas();
}

void PanelDePrograma::RepartirColumnas() {
    const bool expandido = entorno_.ventana.ExpandirCampo;
    expandido_ = static_cast<int>(expandido);
    columnas_->setColumnStretch(0, anchoDeText6 + (expandido ? expansionDeText6 : 0));
    columnas_->setColumnStretch(1, anchoDeText3 + (expandido ? expansionDeText3 : 0));
    columnas_->setColumnStretch(2, anchoDeText4 + (expandido ? expansionDeText4 : 0));
    columnas_->setColumnStretch(3, anchoDeText5);
    expandir_->setText(QString::fromLatin1(RotuloDeExpandirCampo(entorno_.ventana)));
}

}  // namespace qor
