#include "input/qt/finding_words.h"

#include "base/qt/words.h"
#include "input/preview_rows.h"

namespace qor {

namespace {

int PalabraDeClase(HallazgoDeEntrada clase) {
    switch (clase) {
        case HallazgoDeEntrada::LineaCorta: return palabra::LaLineaTerminaAntesDelCampo;
        case HallazgoDeEntrada::LineaLarga: return palabra::SePierdeLoDetrasDelRegistro;
        case HallazgoDeEntrada::Tabuladores: return palabra::TabuladoresDeMas;
        case HallazgoDeEntrada::TabuladoresDeMenos: return palabra::TabuladoresDeMenos;
        case HallazgoDeEntrada::SinCaracter: return palabra::UnByteNoTieneCaracter;
        case HallazgoDeEntrada::Utf8: return palabra::ElArchivoEstaEnUTF8;
        case HallazgoDeEntrada::MarcaDeOrden: return palabra::UnaMarcaDeOrdenDeBytes;
        case HallazgoDeEntrada::Nulo: return palabra::AquiHayUnNUL;
        case HallazgoDeEntrada::FinesMezclados: return palabra::LaLineaTerminaDeOtroModo;
        case HallazgoDeEntrada::SinFinDeLinea: return palabra::LaUltimaLineaNoTieneFin;
        case HallazgoDeEntrada::Desconocida: return palabra::LaLineaNoEmpiezaConIdentificador;
        case HallazgoDeEntrada::SinPrincipal: return palabra::ElRegistroNoTienePrincipal;
        case HallazgoDeEntrada::SinPartidas: return palabra::ElPrincipalNoTienePosiciones;
        case HallazgoDeEntrada::ClaveDoble: return palabra::OtroPrincipalConLaMismaClave;
        case HallazgoDeEntrada::ValorLargo: return palabra::ElValorEsMasLargo;
        case HallazgoDeEntrada::Obligatorio: return palabra::FaltaUnValorObligatorio;
        case HallazgoDeEntrada::NoEsNumero: return palabra::ElValorNoEsUnNumero;
        case HallazgoDeEntrada::NoEsFecha: return palabra::ElValorNoEsUnaFecha;
        case HallazgoDeEntrada::FueraDePatron: return palabra::ElValorNoCorrespondeAlPatron;
        case HallazgoDeEntrada::FueraDeLista: return palabra::ElValorNoEstaEnLaLista;
        case HallazgoDeEntrada::Utf8Mezclado: return palabra::LosCaracteresPodrianSerUTF8;
        case HallazgoDeEntrada::SinComparar: return palabra::LosRegistrosNoSeComparan;
        case HallazgoDeEntrada::CeldaSinLugar: break;
    }
    return palabra::LaCeldaNoCabeEnElCampo;
}

}  // namespace

QString TextoDeHallazgo(const TextosIdioma& textos, const HallazgoDeDatos& hallazgo) {
    const int palabra = PalabraDeClase(hallazgo.clase);
    // The finding's own text is in English, and tells more.
    if (textos.Palabra(palabra) == textos.PalabraInglesa(palabra)) return QString::fromStdString(TextoVisible(hallazgo.texto));
    const QString frase = Palabra(textos, palabra);
    return hallazgo.clase == HallazgoDeEntrada::ClaveDoble ? frase.arg(hallazgo.otraLinea) : frase;
}

}  // namespace qor
