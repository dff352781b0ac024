#include <benchmark/benchmark.h>

#include <filesystem>
#include <stdexcept>

#include "base/values.h"
#include "bench/large_specification.h"
#include "bench/silent_view.h"
#include "findings/finding.h"
#include "generator/checks.h"
#include "generator/generate.h"
#include "model/document_file.h"
#include "model/document_format.h"

namespace qor {
namespace {

std::string RutaDePrueba(const char* nombre) { return (std::filesystem::temp_directory_path() / nombre).string(); }

// One file with ids when the specification has groups.
Opciones OpcionesPara(int grupos) {
    Opciones o = OpcionesDePrueba();
    o.Programa = RutaDePrueba("qor_bench.abap");
    if (grupos == 0) return o;
    o.MultipleFilesOption = false;
    for (int n = 0; n <= grupos; ++n) o.Identificadores += (n == 0 ? "" : ",") + std::to_string(100 + n);
    return o;
}

struct Prueba {
    explicit Prueba(const benchmark::State& state)
        : especificacion(EspecificacionGrande(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)))),
          opciones(OpcionesPara(static_cast<int>(state.range(1)))) {}

    PedidoDeGeneracion Pedido() { return {especificacion, opciones, preferencias, textos, vista, "", ""}; }

    Especificacion especificacion;
    Opciones opciones;
    Preferencias preferencias;
    TextosIdioma textos;
    VistaSilenciosa vista;
};

void Complejidad(benchmark::State& state) { state.SetComplexityN(state.range(0)); }

void BM_Abrir(benchmark::State& state) {
    Prueba prueba(state);
    const std::filesystem::path ruta = RutaDePrueba("qor_bench_open.qor");
    Documento escrito;
    escrito.especificacion = prueba.especificacion;
    escrito.opciones = prueba.opciones;
    if (!GuardarDocumentoComo(escrito, ruta, prueba.textos, prueba.vista)) throw std::runtime_error("save failed");
    escrito.canal.Cerrar();
    for (auto _ : state) {
        Documento documento;
        if (!AbrirDocumento(documento, ruta, prueba.textos, prueba.vista)) throw std::runtime_error("open failed");
    }
    Complejidad(state);
}

void BM_Chequear(benchmark::State& state) {
    Prueba prueba(state);
    for (auto _ : state) {
        if (!ChequearEspecificacion(prueba.Pedido())) throw std::runtime_error("check failed");
    }
    Complejidad(state);
}

void BM_Generar(benchmark::State& state) {
    Prueba prueba(state);
    for (auto _ : state) {
        EstadoDelGenerador estado;
        if (!Generar(prueba.Pedido(), estado)) throw std::runtime_error("generation failed");
    }
    Complejidad(state);
}

// All findings, as the desktop looks for them while the specification is edited.
void BM_Hallazgos(benchmark::State& state) {
    Prueba prueba(state);
    const Preferencias preferencias;
    for (auto _ : state) {
        benchmark::DoNotOptimize(BuscarHallazgos({prueba.especificacion, prueba.opciones, preferencias, prueba.textos, "", ""}));
    }
    Complejidad(state);
}

// The disk's flush is part of a save.
void BM_Grabar(benchmark::State& state) {
    Prueba prueba(state);
    Documento documento;
    documento.especificacion = prueba.especificacion;
    documento.opciones = prueba.opciones;
    const std::filesystem::path ruta = RutaDePrueba("qor_bench_save.qor");
    for (auto _ : state) {
        if (!GuardarDocumentoComo(documento, ruta, prueba.textos, prueba.vista)) throw std::runtime_error("save failed");
    }
    Complejidad(state);
}

void Tamanos(benchmark::internal::Benchmark* b) {
    b->ArgNames({"rows", "groups"})->Unit(benchmark::kMillisecond);
    for (const int filas : {125, 250, 500, 1000}) b->Args({filas, 0});
    b->Args({1000, 100});
}

BENCHMARK(BM_Abrir)->Apply(Tamanos);
BENCHMARK(BM_Chequear)->Apply(Tamanos);
BENCHMARK(BM_Generar)->Apply(Tamanos);
BENCHMARK(BM_Hallazgos)->Apply(Tamanos);
BENCHMARK(BM_Grabar)->Apply(Tamanos);

}  // namespace
}  // namespace qor
