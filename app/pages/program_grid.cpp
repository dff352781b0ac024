#include "app/pages/program_grid.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/text.h"
#include "base/words.h"
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

// The headings, with the least room of their columns in letters.
struct Cabecera {
    const char* nombre;
    int letras;
};
constexpr Cabecera cabeceras[] = {{"ProgramCol", 7}, {"DynproCol", 9}, {"FieldCol", 12}, {"Col2Name", 12}};

}  // namespace

PanelDePrograma::PanelDePrograma(const EntornoDePagina& entorno, const AccionesDeRejilla& acciones, QWidget* padre)
    : QWidget(padre),
      entorno_(entorno),
      partes_{{{anchoDeText6, anchoDeText3, anchoDeText4, anchoDeText5},
               {anchoDeText6 + expansionDeText6, anchoDeText3 + expansionDeText3, anchoDeText4 + expansionDeText4, anchoDeText5}}} {
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
    marco_ = marco;
    auto* const columnas = marco->Orden();
    for (const auto& cabecera : cabeceras) marco->NuevaCabecera(cabecera.nombre, cabecera.letras);
    // In the place of the two headings that are hidden while the field column has their room: both, above their two columns.
    relleno_ = ComoCabecera(Nuevo<QLabel>("CabeceraDeDos", marco));
    relleno_->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    columnas->addWidget(relleno_, 0, 0, 1, 2);
    for (int i = 0; i < lineasTransaccion; ++i) {
        for (const Columna c : {Columna::Programa, Columna::Dynpro, Columna::Campo, Columna::Valor}) {
            celdas_.push_back(NuevaCelda(entorno_, {c, i}, marco, acciones));
            columnas->addWidget(celdas_.back(), i + 1, static_cast<int>(NumeroDeColumna(c)));
        }
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
    orden->setRowStretch(2, 1);
}

void PanelDePrograma::MostrarLineas() {
    const Ventana& ventana = entorno_.ventana;
    MostrarCeldas(ventana, celdas_);
    relleno_->setText(
        TextoQt(ventana.textos.Texto(TituloDe(Columna::Programa)) + " / " + ventana.textos.Texto(TituloDe(Columna::Dynpro))));
    for (auto* const celda : celdas_) MostrarFormas(celda);
    linea_->setText(QString::number(ventana.transaccion.LineaTransaccion + 1));
    barra_->setValue(ventana.transaccion.PrimeraFilaTransaccion);
    signos_->MostrarDesde(ventana.transaccion.PrimeraFilaTransaccion);
    if (expandido_ != static_cast<int>(ventana.ExpandirCampo)) RepartirColumnas();
}

// The forms of a value stand in the empty cell beside a field.
void PanelDePrograma::MostrarFormas(CeldaDeRejilla* celda) {
    if (celda->Lugar().columna != Columna::Valor) return;
    const bool espera = !EstaEnBlanco(TextoDe(entorno_.ventana, {Columna::Campo, celda->Lugar().linea}));
    celda->setPlaceholderText(espera ? Palabra(entorno_.ventana.textos, palabra::LasTresFormasDeUnValor) : QString());
}

// Each state of the button has widths of its own, which the user may have changed.
void PanelDePrograma::RepartirColumnas() {
    const bool expandido = entorno_.ventana.ExpandirCampo;
    if (expandido_ >= 0) partes_[static_cast<std::size_t>(expandido_)] = marco_->Partes();
    expandido_ = static_cast<int>(expandido);
    relleno_->setVisible(expandido);
    marco_->PonerPartes(partes_[static_cast<std::size_t>(expandido)]);
    expandir_->setText(QString::fromLatin1(RotuloDeExpandirCampo(entorno_.ventana)));
}

std::array<std::vector<int>, 2> PanelDePrograma::Partes() const {
    auto partes = partes_;
    if (expandido_ >= 0) partes[static_cast<std::size_t>(expandido_)] = marco_->Partes();
    return partes;
}

void PanelDePrograma::PonerPartes(const std::array<std::vector<int>, 2>& partes) {
    partes_ = partes;
    expandido_ = -1;
    RepartirColumnas();
}

}  // namespace qor
