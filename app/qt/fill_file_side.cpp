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
    const auto mensaje = [&](const char* ingles) { return MensajeLiteral(TextoDelModelo(Palabra(ventana.textos, ingles))); };
    auto lineas = archivo.Leer(0, lineasMiradas + 1, maximoDeLinea);
    if (lineas.empty()) return;
    const std::string cabecera = std::move(lineas.front());
    lineas.erase(lineas.begin());
    if (cabecera.find('\t') == std::string::npos)
        return ventana.vista.Advertir(mensaje("The first line of the file holds no tabs."));
    if (!diseno.PorTabuladores()) {
        if (ventana.documento.opciones.ServidorOp())
            return ventana.vista.Advertir(mensaje("Fields separated by tabs are read from files of the workstation only."));
        const auto pregunta = mensaje(
            "The first line holds names separated by tabs, but the specification reads fields of fixed width. Read fields "
            "separated by tabs from now on?");
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
