#include "app/qt/fill_file_side.h"

#include <algorithm>

#include "base/qt/text.h"
#include "base/qt/words.h"
#include "editor/file_side.h"
#include "editor/option_rules.h"

namespace qor {

namespace {

constexpr std::size_t lineasMiradas = 1'000;  // for the widths
constexpr std::size_t maximoDeLinea = std::size_t{1} << 16;

}  // namespace

void LlenarLadoDeCabecera(Ventana& ventana, const DisenoDeEntrada& diseno, const IndiceDeLineas& archivo) {
    const auto mensaje = [&](int palabra) { return MensajeDePalabra(ventana.textos, palabra); };
    auto lineas = archivo.Leer(0, lineasMiradas + 1, maximoDeLinea);
    if (lineas.empty()) return;
    const std::string cabecera = std::move(lineas.front());
    lineas.erase(lineas.begin());
    if (cabecera.find('\t') == std::string::npos) return ventana.vista.Advertir(mensaje(palabra::LaPrimeraLineaNoTieneTabuladores));
    if (!diseno.PorTabuladores()) {
        if (ventana.documento.opciones.ServidorOp()) return ventana.vista.Advertir(mensaje(palabra::TabuladoresSoloDeLaEstacion));
        const auto pregunta = mensaje(palabra::LeerDesdeAhoraPorTabuladores);
        if (ventana.vista.Preguntar(pregunta, Botones::SiNo) != Respuesta::Si) return;
        CambiarOpcion(ventana, &Opciones::AnchoFijo, false);
    }
    LlenarLadoDeArchivo(ventana, CamposDeCabecera(cabecera, lineas));
}

void LlenarLadoDeMarcas(Ventana& ventana, const DisenoDeEntrada& diseno, const IndiceDeLineas& archivo,
                        const MarcasDeRegla& marcas) {
    std::size_t largo = 0;
    for (const auto& linea : archivo.Leer(0, lineasMiradas, maximoDeLinea)) largo = std::max(largo, linea.size());
    LlenarLadoDeArchivo(ventana, CamposDeMarcas(marcas, diseno.Clases().front().identificador.size(), largo));
}

}  // namespace qor
