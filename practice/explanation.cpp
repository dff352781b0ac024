#include "practice/explanation.h"

#include <filesystem>

#include "base/code_page.h"
#include "base/text.h"
#include "model/cells.h"
#include "practice/messages.h"
#include "practice/value_lists.h"

namespace qor {

namespace {

std::string_view SinCondicion(std::string_view celda) { return Recortar(AntesDe(celda, ';')); }

Frase FilaDelPrograma(int fila) { return {"program side, row %1", {Frase::DeFila(fila)}}; }
Frase FilaDelArchivo(int fila) { return {"file side, row %1", {Frase::DeFila(fila)}}; }

}  // namespace

Explicaciones::Explicaciones(const Especificacion* especificacion, const Opciones* opciones, std::string valores)
    : especificacion_(especificacion), opciones_(opciones), valores_(std::move(valores)) {
    if (especificacion_ == nullptr) return;
    diseno_.emplace(*especificacion_, *opciones_);
    lineas_.emplace(*diseno_);
}

void Explicaciones::PonerArchivos(ArchivoDeGrupo archivo) {
    if (lineas_) lineas_->PonerArchivos(std::move(archivo));
}

std::vector<Frase> Explicaciones::De(const FalloDeRegistro& fallo) {
    std::vector<Frase> lineas;
    const auto procedencia = Buscar(fallo);
    if (!fallo.lugar.campo.empty()) {
        const std::string valor(fallo.lugar.valor);
        Frase linea =
            fallo.esBapi ? Frase("value \"%1\" of %2", {valor, std::string(fallo.lugar.campo)}) : Frase("value \"%1\"", {valor});
        if (procedencia) linea = Frase("%1: %2", {std::move(linea), DeDondeViene(fallo, *procedencia)});
        lineas.push_back(std::move(linea));
    }
    if (auto remedio = QueHacer(fallo, procedencia); !remedio.Vacia()) lineas.push_back(std::move(remedio));
    return lineas;
}

std::optional<Explicaciones::Procedencia> Explicaciones::Buscar(const FalloDeRegistro& fallo) const {
    if (especificacion_ == nullptr || (fallo.esBapi && fallo.lugar.campo.empty())) return std::nullopt;
    Procedencia procedencia;
    procedencia.fila = BuscarFila(fallo);
    if (procedencia.fila < 0) return std::nullopt;
    procedencia.grupo = diseno_->LasOperaciones().OperacionFila(procedencia.fila);
    const auto valor = Recortar(especificacion_->TablaTransaccion[procedencia.fila].valor);
    const int filas = especificacion_->FilasArchivo();
    for (int f = 0; f < filas && !fallo.lugar.campo.empty(); ++f) {
        if (Recortar(especificacion_->TablaArchivo[f].campo) == valor) procedencia.campoDeArchivo = f;
    }
    return procedencia;
}

Lugar Explicaciones::CeldaDe(const FalloDeRegistro& fallo) const {
    const auto procedencia = Buscar(fallo);
    if (!procedencia) return {};
    return Lugar::EnPrograma(procedencia->fila, fallo.lugar.campo.empty() ? 1 : 3);
}

// The row of the field on that screen of that transaction, or in that BAPI; the row of the screen where no field failed. A field
// with a row number is looked for as it was sent first: step-loops send numbers that their rows don't have.
int Explicaciones::BuscarFila(const FalloDeRegistro& fallo) const {
    int sinNumero = -1;
    bool enOperacion = false;
    bool enPantalla = false;
    const int filas = especificacion_->FilasTransaccion();
    for (int r = 0; r < filas; ++r) {
        const auto& fila = especificacion_->TablaTransaccion[static_cast<std::size_t>(r)];
        if (fila.EsCabezaTransaccion() || fila.EsCabezaBAPI()) {
            enOperacion = fila.EsCabezaBAPI() == fallo.esBapi && SinCondicion(fila.dynpro) == fallo.que;
            enPantalla = fallo.esBapi;
            continue;
        }
        if (!EstaEnBlanco(fila.programa)) {
            enPantalla = Recortar(fila.programa) == fallo.lugar.programa && SinCondicion(fila.dynpro) == fallo.lugar.dynpro;
            if (enOperacion && enPantalla && fallo.lugar.campo.empty()) return r;
        }
        if (!enOperacion || !enPantalla || fallo.lugar.campo.empty()) continue;
        const auto campo = SinCondicion(fila.campo);
        if (campo == fallo.lugar.campo) return r;
        if (sinNumero < 0 && SinNumeroDeFila(campo) == SinNumeroDeFila(fallo.lugar.campo)) sinNumero = r;
    }
    return sinNumero;
}

Frase Explicaciones::DeDondeViene(const FalloDeRegistro& fallo, const Procedencia& procedencia) {
    const auto celda = Recortar(especificacion_->TablaTransaccion[procedencia.fila].valor);
    auto fila = FilaDelPrograma(procedencia.fila);
    if (procedencia.campoDeArchivo >= 0) {
        const auto& campo = especificacion_->TablaArchivo[procedencia.campoDeArchivo];
        return {EstaEnBlanco(campo.conversion) ? "field %1%2 (%3; %4)" : "field %1%2, after its conversion (%3; %4)",
                {std::string(Recortar(campo.campo)), LugarEnArchivo(fallo, procedencia), std::move(fila),
                 FilaDelArchivo(procedencia.campoDeArchivo)}};
    }
    if (EsVariable(celda)) return {"the variable %1 (%2)", {std::string(celda.substr(1)), std::move(fila)}};
    return {"the constant %1 (%2)", {std::string(celda), std::move(fila)}};
}

Frase Explicaciones::LugarEnArchivo(const FalloDeRegistro& fallo, const Procedencia& procedencia) {
    if (repeticion_) return " of a record of the error table";
    if (opciones_->EntradaDeTabla()) return " of the database table";
    if (!diseno_->HayArchivo()) return " of your own data source";
    const auto [fila, campo, grupo] = procedencia;
    const auto n = [](std::size_t numero) { return Frase(std::to_string(numero)); };
    const auto sitio = diseno_->SitioDe(campo, grupo);
    const auto numero = lineas_->Buscar(fallo.registro, grupo, campo, fallo.lugar.valor);
    const std::string archivo = DesdeUtf8ConFaltas(lineas_->Archivo(grupo));
    const auto enArchivo = [&](Frase linea) { return archivo.empty() ? linea : Frase("%1 of the file %2", {linea, archivo}); };
    Frase linea = numero > 0 && !archivo.empty() ? Frase("line %1 of the file %2", {n(numero), archivo})
                  : numero > 0                   ? Frase("line %1", {n(numero)})
                  : grupo == 0                   ? enArchivo({"the line of record %1", {n(fallo.registro)}})
                               : enArchivo({"a line of step-loop %1 of record %2", {std::to_string(grupo), n(fallo.registro)}});
    if (diseno_->PorTabuladores()) return {", the %1. field of %2", {std::to_string(sitio.numero), std::move(linea)}};
    return {", columns %1 to %2 of %3", {n(sitio.columna + 1), n(sitio.columna + sitio.ancho), std::move(linea)}};
}

std::optional<LugarDeEntrada> Explicaciones::EntradaDe(const FalloDeRegistro& fallo) {
    if (repeticion_ || !diseno_ || !diseno_->HayArchivo()) return std::nullopt;
    const auto procedencia = Buscar(fallo);
    if (!procedencia || procedencia->campoDeArchivo < 0) return std::nullopt;
    const auto linea = lineas_->Buscar(fallo.registro, procedencia->grupo, procedencia->campoDeArchivo, fallo.lugar.valor);
    if (linea == 0) return std::nullopt;
    return LugarDeEntrada{procedencia->grupo, linea, procedencia->campoDeArchivo};
}

std::string Explicaciones::VariableDeArchivo(int grupo, const ConvencionesDeNombres& nombres) const {
    if (!diseno_ || !diseno_->HayArchivo()) return {};
    const auto& prefijo = opciones_->FileParameterCh == 1 ? nombres.PSprefijo : nombres.GSprefijo;
    return prefijo + (grupo == 0 ? "FILE" : nombres.RaizArchivoStep + std::to_string(grupo));
}

Frase Explicaciones::QueHacer(const FalloDeRegistro& fallo, const std::optional<Procedencia>& procedencia) const {
    const auto& mensaje = fallo.mensaje;
    const bool deArchivo = procedencia && procedencia->campoDeArchivo >= 0;
    const Frase donde = deArchivo ? "in the file" : procedencia ? "in the specification" : "where it comes from";
    const Frase enFila = procedencia ? Frase(" (%1)", {FilaDelPrograma(procedencia->fila)}) : Frase();
    if (!fallo.lugar.campo.empty() && (fallo.esBapi || (mensaje.id == mensajes::clase && mensaje.numero == mensajes::sinEntrada))) {
        return {"correct the value %1, or add it to the value list of %2 in %3",
                {donde, std::string(SinNumeroDeFila(fallo.lugar.campo)), valores_}};
    }
    if (fallo.esBapi && mensaje.texto.ends_with(" is missing or initial")) {
        return "the BAPI demands it, as the catalogue says: fill it in the specification";
    }
    if (mensaje.id != mensajes::clase) return {};
    if (mensaje.numero == mensajes::malFormado) {
        return {deArchivo ? "the value is longer than the field of the screen: shorten it %1, or the field's width"
                          : "the value is longer than the field of the screen: shorten it %1",
                {donde}};
    }
    if (mensaje.numero == mensajes::sinCampo)
        return {"the recording of this screen has no such field: correct its name%1, or record it", {enFila}};
    if (mensaje.numero == mensajes::sinPantalla) {
        if (fallo.lugar.programa.empty())
            return "the first row has to open a screen, and each row behind it is a screen or a field";
        return {"the recording of the transaction has no such screen: correct it%1, or record it", {enFila}};
    }
    return {};
}

}  // namespace qor
