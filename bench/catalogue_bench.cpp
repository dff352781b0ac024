#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "bapi/catalogue.h"
#include "bapi/search.h"
#include "bench/silent_view.h"

namespace qor {
namespace {

// A catalogue of 5000 BAPIs and about 100 MB of lines.
const std::string& ArchivoGrande() {
    static const std::string ruta = [] {
        const auto archivo = (std::filesystem::temp_directory_path() / "qor_bench_catalogue").string();
        std::ofstream salida(archivo, std::ios::binary);
        salida << "BAPIDEFS\r\n0 46C\r\n";
        for (int n = 0; n < 5000; ++n) {
            if (n % 20 == 0) salida << "1 Object " << n << "\r\n";
            salida << "2 BAPI_OBJECT_" << n << "\r\n";
            for (int l = 0; l < 100; ++l)
                salida << "3 Line " << l << " of the documentation tells what the BAPI does with its data.\r\n";
            for (int p = 0; p < 20; ++p) {
                salida << "4 PARAMETER" << p << ":X:I:STRUCTURE" << p << "\r\n";
                for (int f = 0; f < 30; ++f) salida << "5 FIELD_OF_STRUCTURE_" << f << "\r\n";
            }
        }
        return archivo;
    }();
    return ruta;
}

void BM_Cargar(benchmark::State& state) {
    const TextosIdioma textos;
    VistaSilenciosa vista;
    const auto bytes = std::filesystem::file_size(ArchivoGrande());
    for (auto _ : state) {
        if (!RecuperarDatosBAPIs(ArchivoGrande(), textos, vista)) throw std::runtime_error("load failed");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

// A search through all of it without a hit.
void BM_Buscar(benchmark::State& state) {
    const TextosIdioma textos;
    VistaSilenciosa vista;
    const auto catalogo = RecuperarDatosBAPIs(ArchivoGrande(), textos, vista);
    for (auto _ : state) {
        BusquedaBAPI busqueda(*catalogo);
        busqueda.Empezar("DOCUMENTATION NOWHERE", ModoDeBusqueda::Palabras);
        benchmark::DoNotOptimize(busqueda.Siguiente());
    }
}

BENCHMARK(BM_Cargar)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Buscar)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace qor
