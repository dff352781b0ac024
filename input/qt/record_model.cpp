#include "input/qt/record_model.h"

#include <QApplication>
#include <QPalette>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "base/qt/fixed_font.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/text.h"
#include "input/qt/finding_words.h"
#include "input/qt/tints.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeLinea = std::size_t{1} << 16;  // of what is read of a line
constexpr std::size_t maximoDeValor = 1000;                  // of what a cell shows

QString Visible(std::string_view bytes) {
    QString texto = QString::fromStdString(TextoVisible(bytes.substr(0, maximoDeValor)));
    if (bytes.size() > maximoDeValor) texto += QChar(0x2026);
    return texto;
}

}  // namespace

ModeloDeRegistros::ModeloDeRegistros(const TextosIdioma& textos, QObject* padre)
    : QAbstractTableModel(padre),
      textos_(textos),
      diseno_(std::make_shared<DisenoDeEntrada>(Especificacion{}, Opciones{})),
      revisor_(*diseno_, sinReglas_) {}

void ModeloDeRegistros::PonerArchivo(std::shared_ptr<IndiceDeLineas> indice, int archivo) {
    beginResetModel();
    indice_ = std::move(indice);
    archivo_ = archivo;
    primera_ = 0;
    filas_.clear();
    hayResto_ = false;
    ContarColumnas();
    endResetModel();
}

void ModeloDeRegistros::PonerDiseno(std::shared_ptr<const DisenoDeEntrada> diseno) {
    beginResetModel();
    diseno_ = std::move(diseno);
    revisor_ = RevisorDeLineas(*diseno_, sinReglas_);
    hayResto_ = false;
    ContarColumnas();
    for (auto& fila : filas_) {
        Partir(fila);
        hayResto_ = hayResto_ || TieneResto(fila);
    }
    endResetModel();
}

void ModeloDeRegistros::PonerIconos(const QIcon& error, const QIcon& aviso) {
    error_ = error;
    aviso_ = aviso;
}

void ModeloDeRegistros::HallazgosCambiados() {
    if (filas_.empty()) return;
    const int ultima = rowCount() - 1;
    emit dataChanged(index(0, 0), index(ultima, columnas_ - 1));
    emit headerDataChanged(Qt::Vertical, 0, ultima);
}

void ModeloDeRegistros::ContarColumnas() {
    std::size_t campos = 0;
    conClase_ = false;
    if (archivo_ < static_cast<int>(diseno_->Archivos().size())) {
        const auto& clases = diseno_->Archivos()[static_cast<std::size_t>(archivo_)].clases;
        conClase_ = clases.size() > 1;
        for (const int clase : clases) {
            campos = std::max(campos, diseno_->Clases()[static_cast<std::size_t>(clase)].campos.size());
        }
    }
    columnas_ = static_cast<int>(campos) + 1 + (conClase_ ? 1 : 0);
}

void ModeloDeRegistros::Partir(Fila& fila) const {
    const bool hay = archivo_ < static_cast<int>(diseno_->Archivos().size());
    fila.clase = hay ? revisor_.Diseno().ClaseDeLinea(archivo_, fila.linea) : -1;
    fila.tramos.clear();
    if (fila.clase >= 0)
        fila.tramos = PartirRegistro(*diseno_, diseno_->Clases()[static_cast<std::size_t>(fila.clase)], fila.linea);
}

void ModeloDeRegistros::Mover(std::uint64_t primera, int filas) {
    std::vector<Fila> nuevas;
    if (indice_) {
        std::size_t maximo = maximoDeLinea;
        for (const auto& clase : diseno_->Clases()) maximo = std::max(maximo, clase.largo + 1);
        for (auto& linea : indice_->Leer(primera, static_cast<std::size_t>(std::max(filas, 0)), maximo)) {
            nuevas.push_back({std::move(linea), -1, {}});
            Partir(nuevas.back());
            hayResto_ = hayResto_ || TieneResto(nuevas.back());
        }
    }
    const int antes = rowCount();
    const int despues = static_cast<int>(nuevas.size());
    primera_ = primera;
    if (despues < antes) beginRemoveRows({}, despues, antes - 1);
    if (despues > antes) beginInsertRows({}, antes, despues - 1);
    filas_ = std::move(nuevas);
    if (despues < antes) endRemoveRows();
    if (despues > antes) endInsertRows();
    HallazgosCambiados();
}

const ClaseDeRegistro* ModeloDeRegistros::Clase(int fila) const {
    const int clase = filas_.at(static_cast<std::size_t>(fila)).clase;
    return clase < 0 ? nullptr : &diseno_->Clases()[static_cast<std::size_t>(clase)];
}

const ClaseDeRegistro* ModeloDeRegistros::ClasePrincipal() const {
    if (archivo_ >= static_cast<int>(diseno_->Archivos().size())) return nullptr;
    return &diseno_->Clases()[static_cast<std::size_t>(diseno_->Archivos()[static_cast<std::size_t>(archivo_)].clases.front())];
}

int ModeloDeRegistros::CampoDeColumna(int fila, int columna) const {
    const auto* const clase = Clase(fila);
    const int campo = columna - (conClase_ ? 1 : 0);
    return clase == nullptr || campo < 0 || campo >= static_cast<int>(clase->campos.size()) ? -1 : campo;
}

TramoDeLinea ModeloDeRegistros::Tramo(int fila, int columna) const {
    const auto& [linea, clase, tramos] = filas_.at(static_cast<std::size_t>(fila));
    // A line of no kind is shown as a whole.
    if (clase < 0) return columna == ColumnaDeCampo(0) ? TramoDeLinea{0, linea.size()} : TramoDeLinea{};
    if (columna == ColumnaDeResto()) return tramos.back();
    const int campo = CampoDeColumna(fila, columna);
    return campo < 0 ? TramoDeLinea{} : tramos.at(static_cast<std::size_t>(campo));
}

// ---- Findings ----

bool ModeloDeRegistros::EsDe(const HallazgoDeDatos& hallazgo, int fila, int columna) const {
    const auto* const clase = Clase(fila);
    const int campo = hallazgo.fila < 0 || clase == nullptr ? -1 : clase->BuscarFila(hallazgo.fila);
    if (columna < 0) return campo < 0;
    return campo >= 0 && campo == CampoDeColumna(fila, columna);
}

ModeloDeRegistros::Senal ModeloDeRegistros::SenalDe(int fila, int columna) const {
    Senal senal;
    if (hallazgos_ == nullptr) return senal;
    const auto [desde, cuantos] = hallazgos_->DeLinea(archivo_, primera_ + static_cast<std::uint64_t>(fila) + 1);
    for (std::size_t i = desde; i < desde + cuantos; ++i) {
        const auto& hallazgo = hallazgos_->Lista()[i];
        // The line's sign stands for all of its findings.
        if (columna >= 0 && !EsDe(hallazgo, fila, columna)) continue;
        (EsAviso(hallazgo.clase) ? senal.aviso : senal.error) = true;
    }
    return senal;
}

QString ModeloDeRegistros::Motivos(int fila, int columna) const {
    QStringList motivos;
    if (hallazgos_ == nullptr) return {};
    const auto [desde, cuantos] = hallazgos_->DeLinea(archivo_, primera_ + static_cast<std::uint64_t>(fila) + 1);
    for (std::size_t i = desde; i < desde + cuantos; ++i) {
        const auto& hallazgo = hallazgos_->Lista()[i];
        if (EsDe(hallazgo, fila, columna)) motivos << TextoDeHallazgo(textos_, hallazgo);
    }
    return motivos.join(QLatin1Char('\n'));
}

// ---- What is shown ----

QString ModeloDeRegistros::NombreDeClase(int fila) const {
    const auto* const clase = Clase(fila);
    if (clase == nullptr) return QStringLiteral("?");
    const QString identificador = TextoQt(clase->identificador);
    return clase->grupo == 0 ? identificador : QStringLiteral("  \u2514 ") + identificador;
}

QString ModeloDeRegistros::NombreDeCampo(int fila, int columna) const {
    const int campo = CampoDeColumna(fila, columna);
    return campo < 0 ? QString() : TextoQt(Clase(fila)->campos[static_cast<std::size_t>(campo)].nombre);
}

QString ModeloDeRegistros::Valor(int fila, int columna) const {
    if (conClase_ && columna == 0) return NombreDeClase(fila);
    return Visible(Tramo(fila, columna).En(Linea(fila)));
}

QVariant ModeloDeRegistros::data(const QModelIndex& lugar, int papel) const {
    if (!lugar.isValid()) return {};
    const int fila = lugar.row();
    const int columna = lugar.column();
    const bool ajena = Clase(fila) != nullptr && Clase(fila) != ClasePrincipal();
    switch (papel) {
        case Qt::DisplayRole: return Valor(fila, columna);
        case NombreEnCelda: return ajena ? NombreDeCampo(fila, columna) : QString();
        case Qt::AccessibleTextRole: {
            const QString nombre = NombreDeCampo(fila, columna);
            const QString motivos = Motivos(fila, columna);
            const QString valor = nombre.isEmpty() ? Valor(fila, columna) : nombre + QStringLiteral(": ") + Valor(fila, columna);
            return motivos.isEmpty() ? valor : valor + QStringLiteral(". ") + motivos;
        }
        case Qt::FontRole: return LetraFija();
        case Qt::ToolTipRole: {
            const QString motivos = Motivos(fila, columna);
            if (motivos.isEmpty()) return {};
            return QStringLiteral("<qt>") + motivos.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>")) +
                   QStringLiteral("</qt>");
        }
        case Qt::DecorationRole: {
            const Senal senal = SenalDe(fila, columna);
            if (!senal.Hay()) return {};
            return senal.error ? error_ : aviso_;
        }
        case Qt::BackgroundRole: {
            const Senal senal = SenalDe(fila, columna);
            if (!senal.Hay()) return {};
            return FondoDe(QApplication::palette(), !senal.error);
        }
        default: return {};
    }
}

QVariant ModeloDeRegistros::headerData(int seccion, Qt::Orientation orientacion, int papel) const {
    if (orientacion == Qt::Vertical) {
        if (papel == Qt::DisplayRole) return QString::number(primera_ + static_cast<std::uint64_t>(seccion) + 1);
        if (seccion >= rowCount()) return {};
        if (papel == Qt::ToolTipRole) return Motivos(seccion, -1);
        const Senal senal = papel == Qt::DecorationRole ? SenalDe(seccion, -1) : Senal{};
        if (!senal.Hay()) return {};
        return senal.error ? error_ : aviso_;
    }
    if (papel != Qt::DisplayRole && papel != Qt::ToolTipRole) return {};
    const auto* const clase = ClasePrincipal();
    if (conClase_ && seccion == 0) return Palabra(textos_, palabra::Registro);
    const int campo = seccion - (conClase_ ? 1 : 0);
    if (seccion == ColumnaDeResto()) return Palabra(textos_, columnas_ == 1 ? palabra::Linea : palabra::DetrasDelUltimoCampo);
    if (clase == nullptr || campo >= static_cast<int>(clase->campos.size())) return QString();
    const auto& descrito = clase->campos[static_cast<std::size_t>(campo)];
    const QString nombre = TextoQt(descrito.nombre);
    if (papel == Qt::DisplayRole || diseno_->PorTabuladores()) return nombre;
    return Palabra(textos_, palabra::CampoDeColumnaAColumna)
        .arg(nombre)
        .arg(descrito.columna + 1)
        .arg(descrito.columna + descrito.ancho);
}

}  // namespace qor
