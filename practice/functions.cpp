#include "practice/functions.h"

#include "abap/short_dump.h"
#include "abap/values/conversion.h"
#include "practice/conversion_exits.h"
#include "practice/function_parameters.h"
#include "practice/messages.h"
#include "practice/upload_functions.h"

namespace qor {

struct FuncionesDePractica::Entrada {
    std::string_view nombre;
    Modulo modulo;
};

using Llamada = abap::LlamadaAFuncion;
using Propias = FuncionesDePractica;

const Propias::Entrada Propias::modulos_[] = {
    {"BDC_INSERT", [](Propias& f, const Llamada& l) { return f.sesiones_.LlamarBDC_INSERT(l); }},
    {"BDC_OPEN_GROUP", [](Propias& f, const Llamada& l) { return f.sesiones_.LlamarBDC_OPEN_GROUP(l); }},
    {"BDC_CLOSE_GROUP", [](Propias& f, const Llamada& l) { return f.sesiones_.LlamarBDC_CLOSE_GROUP(l); }},
    {"BDC_OBJECT_READ", [](Propias& f, const Llamada& l) { return f.sesiones_.LlamarBDC_OBJECT_READ(l); }},
    {"CONVERSION_EXIT_ALPHA_INPUT", [](Propias&, const Llamada& l) { return LlamarCONVERSION_EXIT_ALPHA_INPUT(l); }},
    {"CONVERSION_EXIT_ALPHA_OUTPUT", [](Propias&, const Llamada& l) { return LlamarCONVERSION_EXIT_ALPHA_OUTPUT(l); }},
    {"MESSAGE_PREPARE", [](Propias& f, const Llamada& l) { return f.LlamarMESSAGE_PREPARE(l); }},
    {"GUI_UPLOAD", [](Propias& f, const Llamada& l) { return LlamarGUI_UPLOAD(l, f.archivos_); }},
    {"WS_UPLOAD", [](Propias& f, const Llamada& l) { return LlamarWS_UPLOAD(l, f.archivos_); }},
    // Nobody is there to choose a file: the name stays.
    {"KD_GET_FILENAME_ON_F4", [](Propias&, const Llamada&) { return std::string(); }},
    {"DOCU_GET", [](Propias& f, const Llamada& l) { return f.LlamarDOCU_GET(l); }},
    {"BAPI_TRANSACTION_COMMIT", [](Propias& f, const Llamada& l) { return f.TerminarUnidad(l, true); }},
    {"BAPI_TRANSACTION_ROLLBACK", [](Propias& f, const Llamada& l) { return f.TerminarUnidad(l, false); }},
};

FuncionesDePractica::FuncionesDePractica(FuncionesDeSesion& sesiones, LlamadasDeBapi& bapis, CatalogoDePractica& catalogo,
                                         NombresDeArchivos& archivos, abap::BaseDeDatos& base)
    : sesiones_(sesiones), bapis_(bapis), catalogo_(catalogo), archivos_(archivos), base_(base) {}

std::string FuncionesDePractica::Llamar(const abap::LlamadaAFuncion& llamada) {
    for (const auto& entrada : modulos_) {
        if (entrada.nombre == llamada.nombre) return entrada.modulo(*this, llamada);
    }
    if (!EsBapi(llamada.nombre)) {
        throw abap::Volcado("CALL_FUNCTION_NOT_FOUND", "Function module " + llamada.nombre + " is not known");
    }
    bapis_.Llamar(llamada);
    return {};
}

bool FuncionesDePractica::EsBapi(std::string_view nombre) {
    const bool conEspacio = nombre.starts_with('/') && nombre.find('/', 1) != std::string_view::npos;
    return nombre.starts_with("BAPI") || conEspacio || deLaEspecificacion_.contains(std::string(nombre)) ||
           catalogo_.Buscar(nombre) != nullptr;
}

std::string FuncionesDePractica::LlamarMESSAGE_PREPARE(const abap::LlamadaAFuncion& llamada) {
    std::string variables[4];
    for (std::size_t i = 0; i < 4; ++i) variables[i] = TextoExportado(llamada, "MSG_VAR" + std::to_string(i + 1));
    const std::string texto = TextoDeMensaje(TextoExportado(llamada, "MSG_ID"), TextoExportado(llamada, "MSG_NO"), variables);
    DevolverTexto(llamada, "MSG_TEXT", texto);
    return {};
}

// The documentation of a function module: what the catalogue has of it behind its short text.
std::string FuncionesDePractica::LlamarDOCU_GET(const abap::LlamadaAFuncion& llamada) {
    auto& tabla = ExigirTabla(llamada, "LINE");
    tabla.Vaciar();
    if (TextoExportado(llamada, "ID") != "FU") return "RET_CODE";
    const auto* funcion = catalogo_.Buscar(TextoExportado(llamada, "OBJECT"));
    if (funcion == nullptr || funcion->LineasTrasElTexto().empty()) return "RET_CODE";
    const auto* estructura = tabla.Linea().estructura;
    const auto* componente = estructura ? estructura->Buscar("TDLINE") : nullptr;
    for (const auto linea : funcion->LineasTrasElTexto()) {
        tabla.Agregar();
        const auto campo = tabla.CampoDeFila(tabla.Filas() - 1);
        abap::PonerInicial(campo, estructura);
        abap::PonerTexto(linea, componente ? abap::CampoDeComponente(*componente, campo.datos) : campo);
    }
    return {};
}

// A success leaves RETURN initial.
std::string FuncionesDePractica::TerminarUnidad(const abap::LlamadaAFuncion& llamada, bool confirmar) {
    for (const auto& parametro : llamada.importa) abap::PonerInicial(parametro.campo, parametro.estructura);
    if (confirmar) {
        base_.Confirmar();
    } else {
        base_.Deshacer();
    }
    return {};
}

}  // namespace qor
