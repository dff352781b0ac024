#include "app/pages/findings_model.h"

#include <string>
#include <string_view>
#include <utility>

#include "app/qt/theme_icon.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/text.h"
#include "findings/catalogue.h"
#include "findings/place_words.h"

namespace qor {

namespace {

QString PalabraSiHay(const TextosIdioma& textos, int palabra) { return palabra == 0 ? QString() : Palabra(textos, palabra); }

}  // namespace

IconosDeGravedad::IconosDeGravedad()
    : iconos_{IconoDeTema("finding-error"), IconoDeTema("finding-warning"), IconoDeTema("finding-note")} {}

QString PalabraDe(const TextosIdioma& textos, Gravedad gravedad) {
    switch (gravedad) {
        case Gravedad::Error: return Palabra(textos, palabra::Error);
        case Gravedad::Aviso: return Palabra(textos, palabra::Advertencia);
        case Gravedad::Nota: break;
    }
    return Palabra(textos, palabra::Nota);
}

// The person counts rows from 1.
QString LugarEnPalabras(const TextosIdioma& textos, const Lugar& lugar) {
    QStringList partes;
    partes << Palabra(textos, lugar.parte == Lugar::Parte::Ninguna ? palabra::LadoEspecificacion : PalabraDeLado(lugar));
    if (lugar.opcion != nullptr) {
        const int rotulo = PalabraDeOpcion(lugar);
        partes.last() += QLatin1Char(' ') + (rotulo == 0 ? QString::fromLatin1(lugar.opcion) : Palabra(textos, rotulo));
    }
    if (lugar.fila >= 0) partes << Palabra(textos, palabra::FilaNumero).arg(lugar.fila + 1);
    partes << PalabraSiHay(textos, PalabraDeColumna(lugar));
    if (lugar.linea > 0) partes << Palabra(textos, palabra::LineaNumero).arg(lugar.linea);
    partes.removeAll(QString());
    return partes.join(QStringLiteral(", "));
}

QString ComoConsejo(const QString& texto) {
    QString html = texto.toHtmlEscaped();
    html.replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    return QStringLiteral("<qt>") + html + QStringLiteral("</qt>");
}

void ModeloDeHallazgos::Poner(std::vector<Hallazgo> lista) {
    beginResetModel();
    lista_ = std::move(lista);
    endResetModel();
}

QVariant ModeloDeHallazgos::data(const QModelIndex& lugar, int papel) const {
    if (!lugar.isValid()) return {};
    const Hallazgo& hallazgo = lista_.at(static_cast<std::size_t>(lugar.row()));
    if (papel == Qt::ToolTipRole) return ComoConsejo(TextoQt(hallazgo.texto));
    if (papel == Qt::DecorationRole && lugar.column() == Severidad) return iconos_.De(hallazgo.gravedad);
    if (papel != Qt::DisplayRole) return {};
    switch (lugar.column()) {
        case Severidad: return PalabraDe(textos_, hallazgo.gravedad);
        case Codigo: return QString::fromStdString(CodigoDeHallazgo(hallazgo.codigo));
        case Sitio: return LugarEnPalabras(textos_, hallazgo.lugar);
        default: return TextoQt(hallazgo.texto).simplified();
    }
}

QVariant ModeloDeHallazgos::headerData(int columna, Qt::Orientation orientacion, int papel) const {
    if (orientacion != Qt::Horizontal || papel != Qt::DisplayRole) return {};
    switch (columna) {
        case Severidad: return Palabra(textos_, palabra::Gravedad);
        case Codigo: return Palabra(textos_, palabra::Codigo);
        case Sitio: return Palabra(textos_, palabra::Lugar);
        default: return Palabra(textos_, palabra::Texto);
    }
}

}  // namespace qor
