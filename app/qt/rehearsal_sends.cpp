#include "app/qt/rehearsal_sends.h"

#include <QFont>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPalette>
#include <algorithm>
#include <array>
#include <string_view>

#include "app/pages/controls.h"
#include "app/pages/findings_model.h"
#include "app/qt/theme_icon.h"
#include "base/qt/text.h"
#include "base/qt/whole_column.h"
#include "base/qt/words.h"
#include "practice/messages.h"

namespace qor {

using Clase = LineaDeEnvio::Clase;

namespace {

constexpr int maximoDeLetras = 60;  // of a column to begin with; a value can be of any length

// The cell without its side, which is mostly the program side.
QString LugarCorto(const TextosIdioma& textos, const Lugar& celda) {
    if (celda.parte == Lugar::Parte::Ninguna) return {};
    const QString entero = LugarEnPalabras(textos, celda);
    const auto coma = entero.indexOf(QStringLiteral(", "));
    return celda.parte == Lugar::Parte::Programa && coma > 0 ? entero.mid(coma + 2) : entero;
}

// "E 00 058 Entry ROHX does not exist": type, class and number stay.
QString MensajeQt(const TextosIdioma& textos, std::string_view mensaje) {
    std::size_t detras = 0;
    for (int palabras = 0; palabras < 3 && detras != std::string_view::npos; ++palabras) detras = mensaje.find(' ', detras + 1);
    if (detras == std::string_view::npos) return TextoQt(mensaje);
    return TextoQt(mensaje.substr(0, detras + 1)) + FraseQt(textos, FraseDeMensaje(mensaje.substr(detras + 1)));
}

}  // namespace

ModeloDeEnvios::ModeloDeEnvios(const TextosIdioma& textos, QObject* padre)
    : QAbstractItemModel(padre), textos_(textos), hijos_(1) {}

void ModeloDeEnvios::Poner(std::vector<LineaDeEnvio> lineas) {
    beginResetModel();
    lineas_ = std::move(lineas);
    hijos_.assign(lineas_.size() + 1, {});
    puestos_.assign(lineas_.size(), 0);
    for (std::size_t i = 0; i < lineas_.size(); ++i) {
        auto& hermanos = hijos_.at(static_cast<std::size_t>(lineas_[i].padre + 1));
        puestos_[i] = static_cast<int>(hermanos.size());
        hermanos.push_back(static_cast<int>(i));
    }
    endResetModel();
}

const LineaDeEnvio* ModeloDeEnvios::Linea(const QModelIndex& lugar) const {
    return lugar.isValid() ? &lineas_.at(lugar.internalId()) : nullptr;
}

const std::vector<int>& ModeloDeEnvios::Hijos(const QModelIndex& padre) const {
    return hijos_.at(padre.isValid() ? padre.internalId() + 1 : 0);
}

QModelIndex ModeloDeEnvios::index(int fila, int columna, const QModelIndex& padre) const {
    const auto& hijos = Hijos(padre);
    if (fila < 0 || static_cast<std::size_t>(fila) >= hijos.size() || columna < 0 || columna >= CantidadDeColumnas) return {};
    return createIndex(fila, columna, static_cast<quintptr>(hijos[static_cast<std::size_t>(fila)]));
}

QModelIndex ModeloDeEnvios::parent(const QModelIndex& lugar) const {
    const auto* const linea = Linea(lugar);
    if (linea == nullptr || linea->padre < 0) return {};
    return createIndex(puestos_.at(static_cast<std::size_t>(linea->padre)), 0, static_cast<quintptr>(linea->padre));
}

int ModeloDeEnvios::rowCount(const QModelIndex& padre) const {
    return padre.column() > 0 ? 0 : static_cast<int>(Hijos(padre).size());
}

QString ModeloDeEnvios::Texto(const LineaDeEnvio& linea, int columna) const {
    switch (columna) {
        case Campo: {
            if (linea.clase == Clase::Mensaje) return MensajeQt(textos_, linea.nombre);
            QString nombre = TextoQt(linea.nombre);
            if (linea.clase != Clase::Operacion) return nombre;
            if (linea.fallado) return nombre + QStringLiteral(" - ") + Palabra(textos_, palabra::Fallado);
            if (linea.enSesion) return nombre + QStringLiteral(" - ") + Palabra(textos_, palabra::EnJuegoDeDatos);
            return nombre;
        }
        case Valor: return TextoQt(linea.valor);
        case DeArchivo: {
            QString campo = TextoQt(linea.deArchivo);
            if (!campo.isEmpty() && linea.grupo > 0 && linea.deRegistro > 0) {
                campo += QStringLiteral(", ") + Palabra(textos_, palabra::LineaNumero).arg(linea.deRegistro);
            }
            return campo;
        }
        case Celda:
            if (!linea.sinEnviar.Vacia()) return FraseQt(textos_, linea.sinEnviar);
            return LugarCorto(textos_, linea.celda);
        default: return {};
    }
}

QVariant ModeloDeEnvios::data(const QModelIndex& lugar, int papel) const {
    const auto* const linea = Linea(lugar);
    if (linea == nullptr) return {};
    switch (papel) {
        case Qt::DisplayRole: return Texto(*linea, lugar.column());
        case Qt::ToolTipRole: return ComoConsejo(Texto(*linea, lugar.column()));
        case Qt::AccessibleDescriptionRole: return linea->gris ? Palabra(textos_, palabra::NoEnviado) : QString();
        case Qt::FontRole: {
            QFont letra;
            if (linea->clase == Clase::Operacion || linea->clase == Clase::Pantalla) letra.setBold(true);
            if (linea->gris) letra.setItalic(true);
            return letra;
        }
        case Qt::ForegroundRole:
            if (linea->gris) return QGuiApplication::palette().brush(QPalette::PlaceholderText);
            return {};
        case Qt::DecorationRole:
            if (lugar.column() != Campo) return {};
            if (linea->clase == Clase::Campo) return linea->fallado ? QVariant(IconoDeTema("finding-error")) : QVariant();
            if (linea->clase == Clase::Mensaje) return IconoDeTema(linea->fallado ? "finding-error" : "finding-note");
            if (linea->clase != Clase::Operacion || linea->gris) return {};
            return IconoDeTema(linea->fallado ? "finding-error" : linea->enSesion ? "record-session" : "record-posted");
        default: return {};
    }
}

QVariant ModeloDeEnvios::headerData(int columna, Qt::Orientation orientacion, int papel) const {
    if (papel != Qt::DisplayRole || orientacion != Qt::Horizontal) return {};
    constexpr std::array titulos = {palabra::Campo, palabra::Valor, palabra::CampoDelArchivo, palabra::DeDondeVieneOPorQueNo};
    return Palabra(textos_, titulos.at(static_cast<std::size_t>(columna)));
}

QModelIndex ModeloDeEnvios::PrimerCulpable() const {
    const auto culpable = std::find_if(lineas_.begin(), lineas_.end(),
                                       [](const LineaDeEnvio& linea) { return linea.clase == Clase::Campo && linea.fallado; });
    if (culpable == lineas_.end()) return {};
    const auto lugar = static_cast<std::size_t>(culpable - lineas_.begin());
    return createIndex(puestos_[lugar], 0, static_cast<quintptr>(lugar));
}

// ---- The tree ----

ArbolDeEnvios::ArbolDeEnvios(const TextosIdioma& textos, QWidget* padre)
    : QTreeView(padre), modelo_(new ModeloDeEnvios(textos, this)) {
    setObjectName(QStringLiteral("ArbolDeEnvios"));
    setAccessibleName(Palabra(textos, palabra::LoQueEnviaElRegistro));
    setModel(modelo_);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setExpandsOnDoubleClick(false);
    setIndentation(fontMetrics().height());
    header()->setSectionsMovable(false);
    MostrarEnteraLaUltimaColumna(*this);
    // Until there are records, as wide as the title.
    const int deArchivo = header()->sectionSizeHint(ModeloDeEnvios::DeArchivo);
    if (deArchivo > header()->defaultSectionSize()) setColumnWidth(ModeloDeEnvios::DeArchivo, deArchivo);
    connect(this, &QTreeView::activated, this, [this](const QModelIndex& lugar) {
        const auto* const linea = modelo_->Linea(lugar);
        if (linea == nullptr) return;
        const bool enArchivo = lugar.column() == ModeloDeEnvios::DeArchivo || lugar.column() == ModeloDeEnvios::Celda;
        if (enArchivo && linea->deRegistro > 0) return emit EntradaActivada(*linea);
        if (linea->celda.parte != Lugar::Parte::Ninguna) emit Activada(linea->celda);
    });
}

// Operations and messages stand across all columns, but for an operation that says why it was not run.
void ArbolDeEnvios::Abarcar(const QModelIndex& padre) {
    for (int r = 0; r < modelo_->rowCount(padre); ++r) {
        const auto& linea = *modelo_->Linea(modelo_->index(r, 0, padre));
        const bool sola = linea.clase == Clase::Mensaje || (linea.clase == Clase::Operacion && linea.sinEnviar.Vacia());
        setFirstColumnSpanned(r, padre, sola);
    }
}

// Once, so that the widths that a user gives stay.
void ArbolDeEnvios::AjustarColumnas() {
    if (ajustado_ || modelo_->rowCount() == 0) return;
    ajustado_ = true;
    const int letra = fontMetrics().averageCharWidth();
    for (const int columna : {ModeloDeEnvios::Campo, ModeloDeEnvios::Valor, ModeloDeEnvios::DeArchivo}) {
        resizeColumnToContents(columna);
        setColumnWidth(columna, std::min(columnWidth(columna) + letra, letra * maximoDeLetras));
    }
}

void ArbolDeEnvios::Poner(std::vector<LineaDeEnvio> lineas) {
    modelo_->Poner(std::move(lineas));
    expandAll();
    Abarcar({});
    for (int n = 0; n < modelo_->rowCount(); ++n) Abarcar(modelo_->index(n, 0));
    AjustarColumnas();
    if (modelo_->rowCount() == 0) return;
    const QModelIndex culpable = modelo_->PrimerCulpable();
    setCurrentIndex(culpable.isValid() ? culpable : modelo_->index(0, 0));
    culpable.isValid() ? scrollTo(culpable) : scrollToTop();
}

}  // namespace qor
