#include "app/qt/rehearsal_records.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

#include "app/pages/controls.h"
#include "app/qt/theme_icon.h"
#include "base/qt/text.h"
#include "base/qt/whole_column.h"
#include "base/qt/words.h"

namespace qor {

namespace {

constexpr std::array estados = {EstadoDeRegistro::SinLlegar, EstadoDeRegistro::Contabilizado, EstadoDeRegistro::Fallado,
                                EstadoDeRegistro::EnSesion};

}  // namespace

QString PalabraDe(const TextosIdioma& textos, EstadoDeRegistro estado) {
    switch (estado) {
        case EstadoDeRegistro::Contabilizado: return Palabra(textos, palabra::Contabilizado);
        case EstadoDeRegistro::Fallado: return Palabra(textos, palabra::Fallado);
        case EstadoDeRegistro::EnSesion: return Palabra(textos, palabra::EnJuegoDeDatos);
        case EstadoDeRegistro::SinLlegar: break;
    }
    return Palabra(textos, palabra::SinLlegar);
}

// ---- The model ----

ModeloDeEnsayo::ModeloDeEnsayo(const TextosIdioma& textos, QObject* padre)
    : QAbstractTableModel(padre),
      textos_(textos),
      iconos_{IconoDeTema("record-waiting"), IconoDeTema("record-posted"), IconoDeTema("finding-error"),
              IconoDeTema("record-session")},
      registros_([&textos](const Frase& frase) { return FraseEnIdioma(textos, frase); }) {}

void ModeloDeEnsayo::Poner(const ResultadoDeEnsayo* resultado) {
    beginResetModel();
    registros_.Poner(resultado);
    endResetModel();
}

void ModeloDeEnsayo::Filtrar(std::optional<EstadoDeRegistro> estado, const QString& texto) {
    beginResetModel();
    registros_.Filtrar(estado, TextoDelModelo(texto));
    endResetModel();
}

int ModeloDeEnsayo::rowCount(const QModelIndex& padre) const {
    constexpr std::size_t maximo = std::numeric_limits<int>::max();
    return padre.isValid() ? 0 : static_cast<int>(std::min(registros_.Cuantos(), maximo));
}

QVariant ModeloDeEnsayo::data(const QModelIndex& lugar, int papel) const {
    if (!lugar.isValid() || lugar.row() >= rowCount()) return {};
    const auto registro = registros_.Registro(static_cast<std::size_t>(lugar.row()));
    const auto estado = registros_.Estado(registro);
    switch (papel) {
        case Qt::DisplayRole:
            if (lugar.column() == Numero) return QLocale().toString(static_cast<qulonglong>(registro));
            if (lugar.column() == Estado) return PalabraDe(textos_, estado);
            return TextoQt(registros_.Motivo(registro));
        case Qt::ToolTipRole:
            if (lugar.column() == Motivo) return TextoQt(registros_.Motivo(registro));
            return {};
        case Qt::DecorationRole:
            if (lugar.column() == Estado) return iconos_.at(static_cast<std::size_t>(estado));
            return {};
        case Qt::TextAlignmentRole:
            if (lugar.column() == Numero) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
            return {};
        case Qt::AccessibleTextRole:
            if (lugar.column() == Numero) return Palabra(textos_, palabra::RegistroNumero).arg(registro);
            return {};
        default: return {};
    }
}

QVariant ModeloDeEnsayo::headerData(int columna, Qt::Orientation orientacion, int papel) const {
    if (orientacion != Qt::Horizontal) return {};
    if (papel == Qt::TextAlignmentRole && columna != Numero) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    if (papel != Qt::DisplayRole) return {};
    constexpr std::array titulos = {palabra::Registro, palabra::Estado, palabra::Fallo};
    return Palabra(textos_, titulos.at(static_cast<std::size_t>(columna)));
}

// ---- The panel ----

PanelDeRegistros::PanelDeRegistros(const TextosIdioma& textos, QWidget* padre)
    : QWidget(padre),
      textos_(textos),
      modelo_(new ModeloDeEnsayo(textos, this)),
      filtro_(Nuevo<QComboBox>("FiltroDeEstado", this)),
      busqueda_(Nuevo<QLineEdit>("BuscarRegistro", this)),
      tabla_(Nuevo<QTableView>("TablaDeRegistrosDeEnsayo", this)) {
    setObjectName(QStringLiteral("PanelDeRegistros"));
    filtro_->setAccessibleName(Palabra(textos, palabra::Estado));
    filtro_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    busqueda_->setAccessibleName(Palabra(textos, palabra::Buscar));
    busqueda_->setPlaceholderText(Palabra(textos, palabra::NumeroOTextoDelFallo));
    busqueda_->setClearButtonEnabled(true);
    tabla_->setModel(modelo_);
    tabla_->setAccessibleName(Palabra(textos, palabra::RegistrosDelEnsayo));
    tabla_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tabla_->setSelectionMode(QAbstractItemView::SingleSelection);
    tabla_->setTabKeyNavigation(false);
    tabla_->setShowGrid(false);
    tabla_->setWordWrap(false);
    tabla_->setAlternatingRowColors(true);
    tabla_->verticalHeader()->hide();
    tabla_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    tabla_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    MostrarEnteraLaUltimaColumna(*tabla_);
    tabla_->horizontalHeader()->setHighlightSections(false);

    auto* const cabeza = new QHBoxLayout;
    cabeza->addWidget(filtro_);
    cabeza->addWidget(busqueda_, 1);
    auto* const orden = new QVBoxLayout(this);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->setSpacing(4);
    orden->addLayout(cabeza);
    orden->addWidget(tabla_, 1);
    connect(filtro_, &QComboBox::currentIndexChanged, this, [this] { Filtrar(); });
    connect(busqueda_, &QLineEdit::textChanged, this, [this] { Filtrar(); });
    connect(busqueda_, &QLineEdit::returnPressed, this, [this] { tabla_->setFocus(); });
    connect(tabla_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &PanelDeRegistros::Cambiado);
    PonerFiltros();
    AjustarColumnas();
}

// The states with how many records they have.
void PanelDeRegistros::PonerFiltros() {
    const QSignalBlocker callado(filtro_);
    const auto& registros = modelo_->Registros();
    filtro_->clear();
    const auto agregar = [&](const QString& palabra, std::size_t cuantos, int dato) {
        filtro_->addItem(QStringLiteral("%1 (%2)").arg(palabra, QLocale().toString(static_cast<qulonglong>(cuantos))), dato);
    };
    agregar(Palabra(textos_, palabra::Todos), registros.Todos(), -1);
    for (const auto estado : estados) agregar(PalabraDe(textos_, estado), registros.CuantosEn(estado), static_cast<int>(estado));
}

void PanelDeRegistros::AjustarColumnas() {
    const auto ancho = [this](const QString& texto) { return tabla_->fontMetrics().horizontalAdvance(texto); };
    const int borde = ancho(QStringLiteral("mm"));
    int estado = ancho(Palabra(textos_, palabra::Estado));
    for (const auto cada : estados) estado = std::max(estado, ancho(PalabraDe(textos_, cada)) + tabla_->fontMetrics().height());
    const int numero = std::max(ancho(Palabra(textos_, palabra::Registro)),
                                ancho(QLocale().toString(static_cast<qulonglong>(modelo_->Registros().Todos()))));
    tabla_->setColumnWidth(ModeloDeEnsayo::Numero, numero + borde);
    tabla_->setColumnWidth(ModeloDeEnsayo::Estado, estado + borde);
}

void PanelDeRegistros::Poner(const ResultadoDeEnsayo* resultado) {
    busqueda_->blockSignals(true);
    busqueda_->clear();
    busqueda_->blockSignals(false);
    modelo_->Poner(resultado);
    PonerFiltros();
    AjustarColumnas();
    if (resultado == nullptr || resultado->registros.empty()) return emit Cambiado();
    const auto& lista = resultado->registros;
    auto elegido = std::find(lista.begin(), lista.end(), EstadoDeRegistro::Fallado);
    if (elegido == lista.end()) {
        elegido = std::find_if(lista.begin(), lista.end(), [](auto estado) { return estado != EstadoDeRegistro::SinLlegar; });
    }
    Elegir(elegido == lista.end() ? 1 : static_cast<std::size_t>(elegido - lista.begin()) + 1);
}

void PanelDeRegistros::Filtrar() {
    const auto antes = Elegido();
    const int dato = filtro_->currentData().toInt();
    modelo_->Filtrar(dato < 0 ? std::nullopt : std::optional(static_cast<EstadoDeRegistro>(dato)), busqueda_->text());
    const auto fila = modelo_->Registros().FilaDe(antes).value_or(0);
    if (modelo_->rowCount() > 0) {
        const auto lugar = modelo_->index(static_cast<int>(fila), 0);
        tabla_->setCurrentIndex(lugar);
        tabla_->scrollTo(lugar);
    }
    emit Cambiado();
}

std::size_t PanelDeRegistros::Elegido() const {
    const auto lugar = tabla_->currentIndex();
    return lugar.isValid() ? modelo_->Registros().Registro(static_cast<std::size_t>(lugar.row())) : 0;
}

void PanelDeRegistros::Elegir(std::size_t registro) {
    auto fila = modelo_->Registros().FilaDe(registro);
    if (!fila) {
        filtro_->setCurrentIndex(0);
        busqueda_->clear();
        fila = modelo_->Registros().FilaDe(registro);
    }
    if (!fila) return;
    const auto lugar = modelo_->index(static_cast<int>(*fila), 0);
    tabla_->setCurrentIndex(lugar);
    tabla_->scrollTo(lugar);
    emit Cambiado();
}

void PanelDeRegistros::EnfocarBusqueda() {
    busqueda_->setFocus(Qt::ShortcutFocusReason);
    busqueda_->selectAll();
}

}  // namespace qor
