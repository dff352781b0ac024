#include "base/qt/text.h"

#include <QFile>

#include "base/code_page.h"
#include "base/text.h"

namespace qor {

QString TextoQt(std::string_view texto) { return QString::fromStdString(AUtf8(texto)); }

std::string TextoDelModelo(const QString& texto) {
    if (auto entero = DesdeUtf8(texto.toStdString())) return *entero;
    std::string resultado;
    for (const QChar c : texto) resultado += DesdeUtf8(QString(c).toStdString()).value_or("");
    return resultado;
}

QString LineasQt(std::string_view texto) { return TextoQt(ReemplazarTodo(texto, "\r\n", "\n")); }

std::string LineasDelModelo(const QString& texto) { return ReemplazarTodo(TextoDelModelo(texto), "\n", "\r\n"); }

QString SinLetra(QString rotulo) { return rotulo.remove(QLatin1Char('&')); }

QString ComoRotulo(QString texto) { return texto.replace(QLatin1Char('&'), QLatin1String("&&")); }

QString ConLetraLibre(QString rotulo, QString& usadas) {
    for (const bool alComienzo : {true, false}) {
        for (int i = 0; i < rotulo.size(); ++i) {
            if (!rotulo[i].isLetter() || (alComienzo && i > 0 && rotulo[i - 1] != QLatin1Char(' '))) continue;
            if (usadas.contains(rotulo[i], Qt::CaseInsensitive)) continue;
            usadas += rotulo[i];
            return rotulo.insert(i, QLatin1Char('&'));
        }
    }
    return rotulo;
}

QString NombreQt(const std::filesystem::path& ruta) { return QFile::decodeName(ruta.c_str()); }

std::filesystem::path RutaDeQt(const QString& ruta) { return QFile::encodeName(ruta).toStdString(); }

}  // namespace qor
