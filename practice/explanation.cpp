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

std::string Fila(const char* lado, int fila) { return std::string(lado) + " side, row " + std::to_string(fila); }

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

std::vector<std::string> Explicaciones::De(const FalloDeRegistro& fallo) {
    std::vector<std::string> lineas;
    const auto procedencia = Buscar(fallo);
    if (!fallo.lugar.campo.empty()) {
        std::string linea = "value \"" + std::string(fallo.lugar.valor) + "\"";
        if (fallo.esBapi) linea.append(" of ").append(fallo.lugar.campo);
        if (procedencia) linea += ": " + DeDondeViene(fallo, *procedencia);
        lineas.push_back(std::move(linea));
    }
    if (auto remedio = QueHacer(fallo, procedencia); !remedio.empty()) lineas.push_back(std::move(remedio));
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

std::string Explicaciones::DeDondeViene(const FalloDeRegistro& fallo, const Procedencia& procedencia) {
    const auto celda = Recortar(especificacion_->TablaTransaccion[procedencia.fila].valor);
    const std::string fila = Fila("program", procedencia.fila);
    if (procedencia.campoDeArchivo >= 0) {
        const auto& campo = especificacion_->TablaArchivo[procedencia.campoDeArchivo];
        std::string texto = "field " + std::string(Recortar(campo.campo)) + LugarEnArchivo(fallo, procedencia);
        if (!EstaEnBlanco(campo.conversion)) texto += ", after its conversion";
        return texto + " (" + fila + "; " + Fila("file", procedencia.campoDeArchivo) + ")";
    }
    if (EsVariable(celda)) return "the variable " + std::string(celda.substr(1)) + " (" + fila + ")";
    return "the constant " + std::string(celda) + " (" + fila + ")";
}

std::string Explicaciones::LugarEnArchivo(const FalloDeRegistro& fallo, const Procedencia& procedencia) {
    if (repeticion_) return " of a record of the error table";
    if (opciones_->EntradaDeTabla()) return " of the database table";
    if (!diseno_->HayArchivo()) return " of your own data source";
    const auto [fila, campo, grupo] = procedencia;
    const auto sitio = diseno_->SitioDe(campo, grupo);
    std::string texto = diseno_->PorTabuladores() ? ", the " + std::to_string(sitio.numero) + ". field of "
                                                  : ", columns " + std::to_string(sitio.columna + 1) + " to " +
                                                        std::to_string(sitio.columna + sitio.ancho) + " of ";
    const auto linea = lineas_->Buscar(fallo.registro, grupo, campo, fallo.lugar.valor);
    if (linea > 0) {
        texto += "line " + std::to_string(linea);
    } else {
        texto += grupo == 0 ? "the line" : "a line of step-loop " + std::to_string(grupo);
        texto += " of record " + std::to_string(fallo.registro);
    }
    const std::string archivo = lineas_->Archivo(grupo);
    return archivo.empty() ? texto : texto + " of the file " + DesdeUtf8ConFaltas(archivo);
}

std::string Explicaciones::VariableDeArchivo(int grupo, const ConvencionesDeNombres& nombres) const {
    if (!diseno_ || !diseno_->HayArchivo()) return {};
    const auto& prefijo = opciones_->FileParameterCh == 1 ? nombres.PSprefijo : nombres.GSprefijo;
    return prefijo + (grupo == 0 ? "FILE" : nombres.RaizArchivoStep + std::to_string(grupo));
}

std::string Explicaciones::QueHacer(const FalloDeRegistro& fallo, const std::optional<Procedencia>& procedencia) const {
    const auto& mensaje = fallo.mensaje;
    const bool deArchivo = procedencia && procedencia->campoDeArchivo >= 0;
    const std::string donde = deArchivo ? "in the file" : procedencia ? "in the specification" : "where it comes from";
    const std::string enFila = procedencia ? " (" + Fila("program", procedencia->fila) + ")" : "";
    if (!fallo.lugar.campo.empty() && (fallo.esBapi || (mensaje.id == mensajes::clase && mensaje.numero == mensajes::sinEntrada))) {
        return "correct the value " + donde + ", or add it to the value list of " +
               std::string(SinNumeroDeFila(fallo.lugar.campo)) + " in " + valores_;
    }
    if (fallo.esBapi && mensaje.texto.ends_with(" is missing or initial")) {
        return "the BAPI demands it, as the catalogue says: fill it in the specification";
    }
    if (mensaje.id != mensajes::clase) return {};
    if (mensaje.numero == mensajes::malFormado) {
        return "the value is longer than the field of the screen: shorten it " + donde +
               (deArchivo ? ", or the field's width" : "");
    }
    if (mensaje.numero == mensajes::sinCampo)
        return "the recording of this screen has no such field: correct its name" + enFila + ", or record it";
    if (mensaje.numero == mensajes::sinPantalla) {
        if (fallo.lugar.programa.empty())
            return "the first row has to open a screen, and each row behind it is a screen or a field";
        return "the recording of the transaction has no such screen: correct it" + enFila + ", or record it";
    }
    return {};
}

}  // namespace qor
