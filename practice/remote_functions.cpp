#include "practice/remote_functions.h"

#include <utility>

#include "base/files.h"
#include "base/text.h"
#include "sap/service.h"

namespace qor {

namespace {

// ---- The report runner ----

constexpr std::string_view parametrosDelCorredor[] = {"MODE"};
constexpr TablaDeModulo tablasDelCorredor[] = {{"PROGRAM", 72}, {"WRITES", 256}};

// MODE "F" runs the report of the table PROGRAM; its list comes back in WRITES.
void CorrerReporte(SistemaRemoto& sistema, LlamadaRemota& llamada) {
    if (llamada.exporta["MODE"] != "F") throw FalloDelServicio("The parameter MODE has to be \"F\"");
    std::string reporte;
    for (const auto& fila : llamada.tablas["PROGRAM"]) reporte.append(fila.front()).append("\n");
    auto& lista = llamada.tablas["WRITES"];
    lista.clear();
    for (auto& linea : sistema.Correr(reporte)) lista.push_back({std::move(linea)});
}

// ---- The function look-up ----

constexpr std::string_view parametrosDeBusqueda[] = {"FUNCNAME"};
constexpr TablaDeModulo tablasDeBusqueda[] = {{"FUNCTIONS", 30}};

// The modules that a pattern with "*" and "+" fits, and their function groups.
void BuscarFunciones(SistemaRemoto& sistema, LlamadaRemota& llamada) {
    constexpr std::string_view prefijoDeGrupo = "SAPL";
    std::string patron = Mayusculas(Recortar(llamada.exporta["FUNCNAME"]));
    patron = ReemplazarTodo(ReemplazarTodo(ReemplazarTodo(ReemplazarTodo(patron, "#", "##"), "%", "#%"), "_", "#_"), "*", "%");
    abap::ConsultaDeBase consulta;
    consulta.tabla = "TFDIR";
    consulta.columnas = {{"FUNCNAME", {}, false}, {"PNAME", {}, false}};
    consulta.donde.clase = abap::CondicionDeBase::Clase::Como;
    consulta.donde.columna = "FUNCNAME";
    consulta.donde.valores = {ReemplazarTodo(patron, "+", "_")};
    consulta.donde.escape = '#';
    auto& funciones = llamada.tablas["FUNCTIONS"];
    funciones.clear();
    std::vector<abap::ValorDeBase> fila;
    for (const auto filas = sistema.Base().Seleccionar(consulta); filas->Siguiente(fila);) {
        const auto& programa = std::get<std::string>(fila[1]);
        const bool conPrefijo = programa.starts_with(prefijoDeGrupo);
        funciones.push_back({std::get<std::string>(fila[0]), programa.substr(conPrefijo ? prefijoDeGrupo.size() : 0)});
    }
    if (funciones.empty()) throw FalloDelServicio("NO_FUNCTION_FOUND");
}

// ---- The source readers ----

constexpr std::string_view parametrosDeLector[] = {"PROGRAM"};
constexpr TablaDeModulo tablasDeLector[] = {{"QTAB", 72}};

void LeerFuente(SistemaRemoto& sistema, LlamadaRemota& llamada) {
    const auto programa = sistema.Programas().Buscar(Mayusculas(Recortar(llamada.exporta["PROGRAM"])));
    if (!programa) throw FalloDelServicio("PROGRAM_NOT_FOUND");
    auto& lineas = llamada.tablas["QTAB"];
    lineas.clear();
    for (const auto linea : PartirEnLineas(programa->texto)) lineas.push_back({std::string(linea)});
}

constexpr ModuloRemoto corredor{parametrosDelCorredor, tablasDelCorredor, CorrerReporte};
constexpr ModuloRemoto busqueda{parametrosDeBusqueda, tablasDeBusqueda, BuscarFunciones};
constexpr ModuloRemoto lector{parametrosDeLector, tablasDeLector, LeerFuente};

}  // namespace

const ModuloRemoto* BuscarModuloRemoto(const NombresRFC& nombres, std::string_view modulo) {
    const std::pair<const std::string&, const ModuloRemoto&> modulos[] = {{nombres.ModuloRFCEstandar, corredor},
                                                                          {nombres.BusquedaDeFunciones, busqueda},
                                                                          {nombres.LectorFuenteA, lector},
                                                                          {nombres.LectorFuenteB, lector}};
    for (const auto& [nombre, suyo] : modulos) {
        if (nombre == Mayusculas(modulo)) return &suyo;
    }
    return nullptr;
}

}  // namespace qor
