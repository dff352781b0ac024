#include "practice/bdc_functions.h"

#include "abap/values/conversion.h"
#include "base/text.h"
#include "practice/function_parameters.h"

namespace qor {

namespace {

// Where the parts of BDCDATA stand in a record of the queue.
struct ColumnaDeRegistro {
    const char* nombre;
    std::size_t lugar;
    std::size_t largo;
};
constexpr ColumnaDeRegistro columnasDeRegistro[] = {
    {"PROGRAM", 0, 40}, {"DYNPRO", 40, 4}, {"DYNBEGIN", 44, 1}, {"FNAM", 45, 132}, {"FVAL", 177, 132}};

void AgregarRegistro(std::string_view registro, abap::TablaInterna& tabla) {
    std::uint8_t* const fila = tabla.Agregar();
    const auto* estructura = tabla.Linea().estructura;
    const auto campo = tabla.CampoDeFila(tabla.Filas() - 1);
    abap::PonerInicial(campo, estructura);
    if (!estructura) {
        abap::PonerTexto(registro, campo);
        return;
    }
    for (const auto& columna : columnasDeRegistro) {
        const auto* componente = estructura->Buscar(columna.nombre);
        if (!componente || columna.lugar >= registro.size()) continue;
        abap::PonerTexto(registro.substr(columna.lugar, columna.largo), abap::CampoDeComponente(*componente, fila));
    }
}

}  // namespace

std::string FuncionesDeSesion::LlamarBDC_OPEN_GROUP(const abap::LlamadaAFuncion& llamada) {
    if (abierta_) return "RUNNING";
    grupo_ = TextoExportado(llamada, "GROUP");
    if (EstaEnBlanco(grupo_)) return "GROUP_INVALID";
    const std::string usuario = TextoExportado(llamada, "USER");
    const std::string conservar = TextoExportado(llamada, "KEEP");
    DevolverTexto(llamada, "QID", cola_.Abrir(grupo_, usuario, conservar));
    abierta_ = true;
    transacciones_ = 0;
    oyente_.AbreSesion({grupo_, usuario, conservar});
    return {};
}

std::string FuncionesDeSesion::LlamarBDC_INSERT(const abap::LlamadaAFuncion& llamada) {
    if (!abierta_) return "NOT_OPEN";
    const std::string transaccion = TextoExportado(llamada, "TCODE");
    if (EstaEnBlanco(transaccion)) return "TCODE_INVALID";
    const auto filas = lector_.Leer(ExigirTabla(llamada, "DYNPROTAB"));
    cola_.Insertar(transaccion, filas);
    ++transacciones_;
    const auto& resultado = probador_.Probar(transaccion, filas, fallos_.Pedido());
    const auto dicho = resultado.Mensaje();
    oyente_.InsertaEnSesion({transaccion, ' ', ' ', filas, resultado.Subrc(), {&dicho, 1}, resultado.lugar});
    return {};
}

std::string FuncionesDeSesion::LlamarBDC_CLOSE_GROUP(const abap::LlamadaAFuncion&) {
    if (!abierta_) return "NOT_OPEN";
    cola_.Cerrar();
    abierta_ = false;
    oyente_.CierraSesion(grupo_, transacciones_);
    return {};
}

std::string FuncionesDeSesion::LlamarBDC_OBJECT_READ(const abap::LlamadaAFuncion& llamada) {
    auto& tabla = ExigirTabla(llamada, "DYNPROTAB");
    tabla.Vaciar();
    const std::string tipo = TextoExportado(llamada, "DATATYPE");
    const bool hay = cola_.Leer(TextoExportado(llamada, "QUEUE_ID"), EstaEnBlanco(tipo) ? "BDC" : tipo,
                                [&tabla](std::string_view registro) { AgregarRegistro(registro, tabla); });
    return hay ? std::string() : "NOT_FOUND";
}

}  // namespace qor
