#include "input/qt/finding_words.h"

#include "base/qt/words.h"
#include "input/preview_rows.h"

namespace qor {

namespace {

const char* TextoDeClase(HallazgoDeEntrada clase) {
    switch (clase) {
        case HallazgoDeEntrada::LineaCorta: return "the line ends before the field begins, which is read as blank";
        case HallazgoDeEntrada::LineaLarga: return "what stands behind the record is lost";
        case HallazgoDeEntrada::Tabuladores: return "the line has too many tabs, and what stands behind the last field is lost";
        case HallazgoDeEntrada::TabuladoresDeMenos: return "the line has too few tabs, and the field is read as blank";
        case HallazgoDeEntrada::SinCaracter: return "a byte has no character in windows-1252";
        case HallazgoDeEntrada::Utf8: return "the file is in UTF-8";
        case HallazgoDeEntrada::Utf8Mezclado: return "the characters could be meant as UTF-8, which the file is not";
        case HallazgoDeEntrada::MarcaDeOrden: return "a byte order mark begins the file";
        case HallazgoDeEntrada::Nulo: return "a NUL stands here, which no text has";
        case HallazgoDeEntrada::FinesMezclados: return "the line ends in another way than the lines before";
        case HallazgoDeEntrada::SinFinDeLinea: return "the last line of the file has no line end";
        case HallazgoDeEntrada::Desconocida: return "the line begins with no id of a record";
        case HallazgoDeEntrada::SinPrincipal: return "the record belongs to no main record";
        case HallazgoDeEntrada::SinPartidas: return "no record of a step-loop belongs to this main record";
        case HallazgoDeEntrada::SinComparar: return "the records of a step-loop are not compared with their main records";
        case HallazgoDeEntrada::ClaveDoble: return "the main record of line %1 has the same key";
        case HallazgoDeEntrada::ValorLargo: return "the value is longer than the field, and its end is lost";
        case HallazgoDeEntrada::Obligatorio: return "a value is required";
        case HallazgoDeEntrada::NoEsNumero: return "the value is no number with this decimal sign";
        case HallazgoDeEntrada::NoEsFecha: return "the value is no date of this form";
        case HallazgoDeEntrada::FueraDePatron: return "the value doesn't fit the pattern";
        case HallazgoDeEntrada::FueraDeLista: return "the value is not in the list";
        case HallazgoDeEntrada::CeldaSinLugar: break;
    }
    return "the cell doesn't fit the field";
}

}  // namespace

QString TextoDeHallazgo(const TextosIdioma& textos, const HallazgoDeDatos& hallazgo) {
    const char* const ingles = TextoDeClase(hallazgo.clase);
    const QString traducido = Palabra(textos, ingles);
    if (traducido == QLatin1String(ingles)) return QString::fromStdString(TextoVisible(hallazgo.texto));
    return hallazgo.clase == HallazgoDeEntrada::ClaveDoble ? traducido.arg(hallazgo.otraLinea) : traducido;
}

}  // namespace qor
