// Any bytes as a data set of either kind: scanned, and a field replaced under a condition. Whatever isn't the field's stays.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/failure.h"
#include "base/files.h"
#include "dataset/data_set.h"
#include "fuzz/indifferent_view.h"
#include "fuzz/memory_file.h"
#include "fuzz/require.h"

namespace {

using namespace qor;

void Reemplazar(std::string_view texto, const std::filesystem::path& ruta, const JuegoDeDatos& datos, ModoDeReemplazo modo) {
    Reemplazo reemplazo;
    reemplazo.campo = datos.campos.front();
    reemplazo.nuevo = "NEW";
    reemplazo.viejo = "A";
    reemplazo.modo = modo;
    reemplazo.condiciones[0] = {datos.campos.back(), false, "A"};
    reemplazo.unaVez = true;

    std::string nuevo;
    long cambios = 0;
    try {
        ArchivoAbierto archivo(ruta);
        cambios = CopiarReemplazando(archivo, datos, reemplazo, [&](std::string_view parte) { nuevo += parte; }).value();
    } catch (const FalloDeEjecucion&) {
        return;
    }
    const auto lineasAntes = PartirEnLineas(texto);
    const auto lineas = PartirEnLineas(nuevo);
    Exigir(lineas.size() == lineasAntes.size(), "no line comes or goes");
    long otras = 0;
    for (std::size_t i = 0; i < lineas.size(); ++i) otras += lineas[i] != lineasAntes[i] ? 1 : 0;
    Exigir(otras <= cambios, "only lines whose value was changed are others");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    static ArchivoEnMemoria archivo;
    archivo.Poner(datos, cantidad);
    const TextosIdioma textos;
    VistaIndiferente vista;
    const auto juego = ExaminarJuegoDeDatos(archivo.Ruta(), textos, vista);
    if (!juego || juego->campos.empty()) return 0;
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    for (const auto modo : {ModoDeReemplazo::Parte, ModoDeReemplazo::Todo, ModoDeReemplazo::Cualquiera})
        Reemplazar(texto, archivo.Ruta(), *juego, modo);
    return 0;
}
