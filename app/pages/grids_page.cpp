#include "app/pages/grids_page.h"

#include <QLabel>
#include <QSettings>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/pages/controls.h"
#include "app/pages/file_grid.h"
#include "app/pages/program_grid.h"
#include "base/qt/text.h"

namespace qor {

namespace {

constexpr int parteDelArchivo = 4;
constexpr int parteDelPrograma = 9;
constexpr int pixelesPorParte = 100;
constexpr int anchoDeDivision = 12;

QStringList ComoLista(const std::vector<int>& partes) {
    QStringList lista;
    for (const int parte : partes) lista << QString::number(parte);
    return lista;
}

// What was kept, where it can be used; else what there is.
std::vector<int> PartesDe(const QStringList& lista, const std::vector<int>& antes) {
    std::vector<int> partes;
    for (const auto& parte : lista) partes.push_back(parte.toInt());
    const bool valen = partes.size() == antes.size() && std::all_of(partes.begin(), partes.end(), [](int p) { return p > 0; });
    return valen ? partes : antes;
}

}  // namespace

PaginaDeRejillas::PaginaDeRejillas(const EntornoDePagina& entorno, const Acciones& acciones)
    : archivo_(new PanelDeArchivo(entorno, acciones.rejilla, this)),
      programa_(new PanelDePrograma(entorno, acciones.rejilla, this)),
      edicion_(new CajaDeEdicion(entorno, acciones.edicion, this)) {
    auto* const lado = new QWidget(this);
    auto* const derecha = new QVBoxLayout(lado);
    derecha->setContentsMargins(0, 0, 0, 0);
    derecha->setSpacing(2);
    derecha->addWidget(programa_);
    derecha->addWidget(NuevoAviso(entorno, lado));
    derecha->addWidget(edicion_);
    derecha->addStretch(1);
    division_ = Nuevo<QSplitter>("DivisionDeRejillas", Qt::Horizontal, this);
    division_->setChildrenCollapsible(false);
    division_->setHandleWidth(anchoDeDivision);
    division_->addWidget(archivo_);
    division_->addWidget(lado);
    division_->setStretchFactor(0, parteDelArchivo);
    division_->setStretchFactor(1, parteDelPrograma);
    division_->setSizes({parteDelArchivo * pixelesPorParte, parteDelPrograma * pixelesPorParte});
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(division_);
    orden->addWidget(new PanelDeOrigen(entorno, acciones.origen, this));
    orden->addStretch(1);
}

// The hint of the editor has its line whether there is one or not.
QLabel* PaginaDeRejillas::NuevoAviso(const EntornoDePagina& entorno, QWidget* padre) {
    auto* const aviso = Nuevo<QLabel>("AvisoDeRejilla", padre);
    aviso->setTextFormat(Qt::PlainText);
    aviso->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    aviso->setMinimumHeight(aviso->fontMetrics().height());
    entorno.lazos.AlMostrar([&ventana = entorno.ventana, aviso] {
        const QString texto = TextoQt(ventana.aviso);
        aviso->setText(texto);
        aviso->setToolTip(texto);
    });
    return aviso;
}

void PaginaDeRejillas::GuardarReparto(QSettings& ajustes) const {
    ajustes.setValue(QStringLiteral("grids/split"), division_->saveState());
    ajustes.setValue(QStringLiteral("grids/file"), ComoLista(archivo_->Marco().Partes()));
    const auto partes = programa_->Partes();
    ajustes.setValue(QStringLiteral("grids/program"), ComoLista(partes[0]));
    ajustes.setValue(QStringLiteral("grids/program-wide-field"), ComoLista(partes[1]));
}

void PaginaDeRejillas::RestaurarReparto(const QSettings& ajustes) {
    division_->restoreState(ajustes.value(QStringLiteral("grids/split")).toByteArray());
    const auto leer = [&](const char* nombre, const std::vector<int>& antes) {
        return PartesDe(ajustes.value(QString::fromLatin1(nombre)).toStringList(), antes);
    };
    archivo_->Marco().PonerPartes(leer("grids/file", archivo_->Marco().Partes()));
    const auto partes = programa_->Partes();
    programa_->PonerPartes({leer("grids/program", partes[0]), leer("grids/program-wide-field", partes[1])});
}

void PaginaDeRejillas::MostrarRejillas() {
    archivo_->MostrarLineas();
    programa_->MostrarLineas();
}

void PaginaDeRejillas::PonerSignos(SignosDeFilas archivo, SignosDeFilas programa) {
    archivo_->Signos().PonerSignos(std::move(archivo));
    programa_->Signos().PonerSignos(std::move(programa));
}

}  // namespace qor
