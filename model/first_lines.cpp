#include "model/first_lines.h"

#include "model/columns.h"

namespace qor {

void PrimerasLineas::MostrarDocumento(Especificacion& especificacion, const TextosIdioma& textos, Vista& vista) {
    for (int i = 0; i < lineasArchivo && !especificacion.TablaArchivo[i].campo.empty(); ++i) {
        MostrarFilaDeArchivo(especificacion, i, textos, vista);
    }
    for (int i = 0; i < lineasTransaccion && !especificacion.TablaTransaccion[i].SinNombres(); ++i) {
        MostrarFilaDeTransaccion(especificacion, i);
    }
}

void PrimerasLineas::MostrarArchivo(Especificacion& especificacion, const TextosIdioma& textos, Vista& vista) {
    for (int i = 0; i < lineasArchivo; ++i) MostrarFilaDeArchivo(especificacion, i, textos, vista);
}

void PrimerasLineas::MostrarTransaccion(Especificacion& especificacion) {
    for (int i = 0; i < lineasTransaccion; ++i) MostrarFilaDeTransaccion(especificacion, i);
}

void PrimerasLineas::MostrarFilaDeArchivo(Especificacion& especificacion, int numero, const TextosIdioma& textos, Vista& vista) {
    auto& fila = especificacion.TablaArchivo[numero];
    auto& mostrada = archivo_[static_cast<std::size_t>(numero)];
    for (const Columna columna : columnasDeCeldasDeArchivo) {
        std::string& texto = fila.*ColumnaDeArchivo(columna);
        std::string& antes = mostrada.*ColumnaDeArchivo(columna);
        if (antes == texto) continue;
        if (columna == Columna::CampoDeArchivo && texto.size() > largoMaximoDeCampo) {
            vista.Advertir(Componer(textos, {333, " 30."}));
            texto.resize(largoMaximoDeCampo);
        }
        antes = texto;
        texto = TextoDeTabla(columna, texto);
    }
}

void PrimerasLineas::MostrarFilaDeTransaccion(Especificacion& especificacion, int numero) {
    auto& fila = especificacion.TablaTransaccion[numero];
    auto& mostrada = transaccion_[static_cast<std::size_t>(numero)];
    for (const Columna columna : columnasDeCeldasDeTransaccion) {
        std::string& texto = fila.*ColumnaDeTransaccion(columna);
        std::string& antes = mostrada.*ColumnaDeTransaccion(columna);
        if (antes == texto) continue;
        antes = texto;
        texto = TextoDeTabla(columna, texto);
    }
}

}  // namespace qor
