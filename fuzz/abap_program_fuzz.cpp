// Any bytes as a report: they are compiled, and what compiles is run. Everything ends in a result, in faults or in a short dump.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/memory_file.h"
#include "fuzz/practised_report.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    static qor::ArchivoEnMemoria archivo;
    archivo.Poner(datos, cantidad);
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    const qor::CorridaCualquiera corrida(texto, archivo.Ruta());
    return 0;
}
