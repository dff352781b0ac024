// Any bytes as a data set of either kind: scanned, and a field replaced under a condition. Whatever isn't the field's stays.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "base/files.h"
#include "bench/silent_view.h"
#include "dataset/data_set.h"
#include "fuzz/require.h"

namespace {

using namespace qor;

class VistaIndiferente : public VistaSilenciosa {
public:
    void Mostrar(const Mensaje& /*mensaje*/, Icono /*icono*/) override {}
};

const std::string& Archivo() {
    static const std::string ruta = (std::filesystem::temp_directory_path() / ("qor-fuzz-" + std::to_string(::getpid()))).string();
    return ruta;
}

void Reemplazar(JuegoDeDatos& datos, const TextosIdioma& textos, ModoDeReemplazo modo) {
    VistaIndiferente vista;
    Reemplazo reemplazo;
    reemplazo.campo = datos.campos.front();
    reemplazo.nuevo = "NEW";
    reemplazo.viejo = "A";
    reemplazo.modo = modo;
    reemplazo.condiciones[0] = {datos.campos.back(), false, "A"};
    reemplazo.unaVez = true;
    const auto lineasAntes = PartirEnLineas(LeerArchivo(Archivo())).size();
    if (!ReemplazarValores(Archivo(), datos, reemplazo, textos, vista)) return;
    Exigir(PartirEnLineas(LeerArchivo(Archivo())).size() == lineasAntes, "no line comes or goes");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    std::ofstream(Archivo(), std::ios::binary).write(reinterpret_cast<const char*>(datos), static_cast<std::streamsize>(cantidad));
    const TextosIdioma textos;
    VistaIndiferente vista;
    auto juego = ExaminarJuegoDeDatos(Archivo(), textos, vista);
    if (!juego || juego->campos.empty()) return 0;
    for (const auto modo : {ModoDeReemplazo::Parte, ModoDeReemplazo::Todo, ModoDeReemplazo::Cualquiera})
        Reemplazar(*juego, textos, modo);
    return 0;
}
