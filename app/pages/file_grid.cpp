#include "app/pages/file_grid.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>
#include <string>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "base/qt/words.h"
#include "editor/cell_actions.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"

namespace qor {

namespace {

// The least room of the columns, in letters.
constexpr int letrasDeNombre = 12;
constexpr int letrasDeAncho = 5;

}  // namespace

PanelDeArchivo::PanelDeArchivo(const EntornoDePagina& entorno, const AccionesDeRejilla& acciones, QWidget* padre)
    : QWidget(padre), entorno_(entorno), acciones_(acciones) {
    auto* const titulo = EnNegrita(Nuevo<QLabel>("FileSpecification", this));
    auto* const rotulo = Nuevo<QLabel>("LineaArchivoLabel", this);
    linea_ = Nuevo<RotuloDeLinea>("LineaArchivo", this,
                                  [this] { entorno_.lazos.Hacer([this] { DobleClicLineaArchivo(entorno_.ventana); }); });

    auto* const marco = Nuevo<MarcoDeRejilla>(
        "RejillaArchivo", this, [this](int filas) { entorno_.lazos.Hacer([&] { DesplazarArchivo(entorno_.ventana, filas); }); });
    marco_ = marco;
    auto* const rejilla = marco->Orden();
    marco->NuevaCabecera("ColumnName", letrasDeNombre);
    marco->NuevaCabecera("FileWidth", letrasDeAncho);
    rejilla->addWidget(ComoCabecera(new QLabel(marco)), 0, 2);
    for (int i = 0; i < lineasArchivo; ++i) {
        for (const Columna columna : {Columna::CampoDeArchivo, Columna::Ancho}) {
            celdas_.push_back(NuevaCelda(entorno_, {columna, i}, marco, acciones_));
            rejilla->addWidget(celdas_.back(), i + 1, static_cast<int>(NumeroDeColumna(columna)));
        }
        rejilla->addWidget(NuevoBotonDeCodigo(i, marco), i + 1, 2);
    }
    marco->PonerPartes({4, 1});
    barra_ = NuevaBarra(this, "BarraArchivo", ultimaPrimeraFilaArchivo, lineasArchivo);
    connect(barra_, &QScrollBar::valueChanged, this, [this](int primera) {
        entorno_.lazos.Cambio([&] { DesplazarArchivo(entorno_.ventana, primera - entorno_.ventana.archivo.PrimeraFilaArchivo); });
    });

    signos_ = new MargenDeSignos("SignosArchivo", this);
    signos_->PonerCeldas(CeldasPorLinea(celdas_, lineasArchivo));

    auto* const orden = new QGridLayout(this);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->setHorizontalSpacing(3);
    orden->addWidget(titulo, 0, 0, 1, 2);
    orden->setRowMinimumHeight(0, AltoDeTitulo(*this));
    orden->addWidget(rotulo, 0, 2);
    orden->addWidget(linea_, 0, 3, 1, 2);
    orden->addWidget(signos_, 1, 0);
    orden->addWidget(marco, 1, 1, 1, 3);
    orden->addWidget(barra_, 1, 4);
    orden->setColumnStretch(1, 1);
    orden->setRowStretch(2, 1);
}

QToolButton* PanelDeArchivo::NuevoBotonDeCodigo(int linea, QWidget* padre) {
    auto* const boton = Nuevo<QToolButton>(("ABAP_" + std::to_string(linea)).c_str(), padre);
    boton->setFocusPolicy(Qt::NoFocus);
    boton->setAutoRaise(true);
    boton->setAutoFillBackground(true);
    boton->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    connect(boton, &QToolButton::clicked, this, [this, linea] {
        entorno_.lazos.Mandar([&] {
            if (const auto fila = ClicEnABAP(entorno_.ventana, linea)) acciones_.codigo(*fila);
        });
    });
    ABAP_[static_cast<std::size_t>(linea)] = boton;
    return boton;
}

// The buttons have the room of their bold text, so that code of a row moves nothing.
void PanelDeArchivo::ReservarCodigo() {
    QFont negrita = font();
    negrita.setBold(true);
    const QToolButton* const boton = ABAP_.front();
    const int crece = QFontMetrics(negrita).horizontalAdvance(boton->text()) - fontMetrics().horizontalAdvance(boton->text());
    const bool yaNegrita = boton->font().bold();
    marco_->Orden()->setColumnMinimumWidth(2, boton->sizeHint().width() + (yaNegrita ? 0 : crece));
}

void PanelDeArchivo::MostrarLineas() {
    const Ventana& ventana = entorno_.ventana;
    MostrarCeldas(ventana, celdas_);
    for (std::size_t i = 0; i < ABAP_.size(); ++i) {
        const int fila = ventana.archivo.PrimeraFilaArchivo + static_cast<int>(i) + 1;
        const QString nombre = ABAP_[i]->text() + QStringLiteral(", ") + Palabra(ventana.textos, palabra::FilaNumero).arg(fila);
        if (ABAP_[i]->accessibleName() != nombre) ABAP_[i]->setAccessibleName(nombre);
        const Color color = ventana.archivo.conversion[i].color;
        QPalette paleta = ABAP_[i]->palette();
        const QColor nuevo = color == Color::Rojo ? ColorDeTexto(color, palette()) : palette().color(QPalette::ButtonText);
        if (paleta.color(QPalette::ButtonText) == nuevo) continue;
        paleta.setColor(QPalette::ButtonText, nuevo);
        ABAP_[i]->setPalette(paleta);
        QFont letra = ABAP_[i]->font();
        letra.setBold(color == Color::Rojo);
        ABAP_[i]->setFont(letra);
    }
    ReservarCodigo();
    linea_->setText(QString::number(ventana.archivo.LineaArchivo + 1));
    barra_->setValue(ventana.archivo.PrimeraFilaArchivo);
    signos_->MostrarDesde(ventana.archivo.PrimeraFilaArchivo);
}

}  // namespace qor
