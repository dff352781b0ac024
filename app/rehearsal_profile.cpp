#include "app/rehearsal_profile.h"

#include <algorithm>
#include <charconv>

#include "abap/values/conversion.h"
#include "base/files.h"
#include "base/text.h"
#include "model/cells.h"
#include "model/operations.h"

namespace qor {

namespace {

using Parte = Lugar::Parte;

constexpr int columnaDeOperacion = 1;
constexpr int columnaDeConversion = 3;
constexpr int columnaDeNota = 4;
// As the generator breaks the text of a conversion.
constexpr int anchoDeCodigo = 50;

bool EsSi(const abap::Campo& campo) { return campo.datos != nullptr && SinBlancosDetras(campo.Texto()) == "X"; }

bool EsBlanco(const abap::Campo& campo) {
    using enum abap::Tipo;
    if (campo.datos == nullptr || campo.tipo == I || campo.tipo == P || campo.tipo == F || campo.tipo == X) return false;
    return SinBlancosDetras(campo.Texto()).empty();
}

// The number in the brackets of FIELD(12).
std::uint16_t NumeroDeFila(std::string_view campo) {
    std::uint16_t numero = 0;
    const auto abre = campo.find('(');
    if (abre != std::string_view::npos) std::from_chars(campo.data() + abre + 1, campo.data() + campo.size(), numero);
    return numero;
}

}  // namespace

PerfilDeEnsayo::PerfilDeEnsayo(const Especificacion& especificacion, const ConvencionesDeNombres& nombres,
                               const OrigenesDelReporte& origenes, std::string_view reporte, NotasDeEnsayo& notas)
    : notas_(notas) {
    for (int fila = 0; fila < filasTabla; ++fila) {
        const auto& nombre = especificacion.TablaCondiciones[static_cast<std::size_t>(fila)].nombre;
        if (nombre.empty()) break;
        condicion_.emplace(SinBlancosDetras(nombre), condiciones_.size());
        condiciones_.push_back({nombre, fila, 0, 0});
    }
    PonerPares(especificacion);
    PonerLineas(especificacion, nombres, origenes, reporte);
}

void PerfilDeEnsayo::PonerPares(const Especificacion& especificacion) {
    const auto operaciones = ActualizarOperaciones(especificacion, 0);
    for (int fila = 0; fila <= ultimaFila; ++fila) {
        const auto& campo = especificacion.TablaArchivo[static_cast<std::size_t>(fila)];
        if (!TienePares(campo.conversion)) continue;
        const auto agregar = [&](int linea, std::string texto) {
            pares_.push_back({fila, linea, std::move(texto), 0});
            grupoDePar_.push_back(operaciones.OperacionDeCampo(Recortar(campo.campo)));
        };
        for (const auto& [texto, numero] : PartirLineasConNumero(campo.conversion, anchoDeCodigo)) {
            if (TienePares(texto)) agregar(numero, texto);
        }
        agregar(0, {});
    }
}

void PerfilDeEnsayo::PonerLineas(const Especificacion& especificacion, const ConvencionesDeNombres& nombres,
                                 const OrigenesDelReporte& origenes, std::string_view reporte) {
    const std::string agrega = "APPEND " + nombres.GTprefijo + "BDC_TAB.";
    grupoDeCabeza_.resize(filasTabla);
    int grupo = 0;
    for (const int cabeza : CabezasStepLoop(especificacion)) grupoDeCabeza_[static_cast<std::size_t>(cabeza)] = ++grupo;
    const auto par = [&](const Lugar& lugar) {
        const auto es = [&](const auto& uno) { return uno.fila == lugar.fila && uno.linea == lugar.linea; };
        return std::find_if(pares_.begin(), pares_.end(), es) - pares_.begin();
    };
    lineas_.resize(1);
    for (const auto texto : PartirEnLineas(reporte)) {
        const auto cortada = Recortar(texto);
        auto& linea = lineas_.emplace_back();
        linea.lugar = origenes.LugarDe(static_cast<int>(lineas_.size()) - 1);
        const auto [parte, columna, fila, numero, opcion] = linea.lugar;
        if (parte == Parte::Ninguna && cortada == agrega) {
            linea.papel = Papel::AgregaFila;
        } else if (parte == Parte::Archivo && columna == columnaDeConversion && !cortada.starts_with("WHEN ") &&
                   cortada.starts_with(nombres.GSprefijo + "CONVERTED" + std::to_string(fila) + " ")) {
            linea.cual = static_cast<int>(par(linea.lugar));
            if (linea.cual < static_cast<int>(pares_.size())) linea.papel = Papel::Par;
        } else if (parte == Parte::Programa && columna == columnaDeNota && cortada == "PERFORM TABCONVERSIONS.") {
            linea.papel = Papel::ConvierteLinea;
            linea.cual = grupoDeCabeza_[static_cast<std::size_t>(fila)];
        } else if (parte == Parte::Programa && columna == columnaDeOperacion && cortada.starts_with("PERFORM ")) {
            const auto& cabeza = especificacion.TablaTransaccion[static_cast<std::size_t>(fila)];
            const bool esCabeza = cabeza.EsCabezaTransaccion() || cabeza.EsCabezaBAPI();
            const bool esOtra = cortada.starts_with("PERFORM COND_CHECK ") || cortada.starts_with("PERFORM INSERT_DATA ");
            if (esCabeza && !esOtra) linea.papel = Papel::VuelveOperacion;
        }
    }
}

const PerfilDeEnsayo::Linea& PerfilDeEnsayo::LineaDe(int linea) const {
    return lineas_[linea > 0 && static_cast<std::size_t>(linea) < lineas_.size() ? static_cast<std::size_t>(linea) : 0];
}

void PerfilDeEnsayo::Sentencia(int linea) {
    const auto& suya = LineaDe(linea);
    switch (suya.papel) {
        case Papel::AgregaFila: ++agregadas_; break;
        case Papel::ConvierteLinea: grupo_ = suya.cual; break;
        case Papel::Par: {
            // The values of all step-loops are converted for each line of each of them; those of its own count.
            const auto cual = static_cast<std::size_t>(suya.cual);
            if (grupoDePar_[cual] == 0 || grupoDePar_[cual] == grupo_) ++pares_[cual].veces;
            break;
        }
        default: break;
    }
}

void PerfilDeEnsayo::Fila(int linea, std::size_t fila) {
    const auto& lugar = LineaDe(linea).lugar;
    if (lugar.parte != Parte::Programa || lugar.columna != columnaDeNota) return;
    const auto grupo = static_cast<std::uint16_t>(grupoDeCabeza_[static_cast<std::size_t>(lugar.fila)]);
    notas_.Anotar({static_cast<std::uint32_t>(fila), grupo, Paso::Clase::Linea, 0});
}

void PerfilDeEnsayo::Vuelta(const abap::FormaTerminada& forma) {
    const auto nombre = forma.Nombre();
    if (nombre == "DYNPRO") {
        VuelveDynpro(forma);
    } else if (nombre == "SL_SEND") {
        pendiente_.linea = static_cast<std::uint32_t>(forma.Linea());
        notas_.Anotar(pendiente_);
    } else if (nombre == "COND_CHECK") {
        VuelveCondicion(forma);
    } else if (LineaDe(forma.Linea()).papel == Papel::VuelveOperacion) {
        notas_.Anotar({static_cast<std::uint32_t>(forma.Linea()), 0, Paso::Clase::Operacion, 0});
    }
}

// FORM DYNPRO USING DYNBEGIN NAME FVALUE CONDITION.
void PerfilDeEnsayo::VuelveDynpro(const abap::FormaTerminada& forma) {
    Paso paso{static_cast<std::uint32_t>(forma.Linea()), 0, Paso::Clase::Envio, condicionDeFila_};
    if (EsSi(forma.Parametro(0))) paso.marcas |= Paso::abre;
    if (agregadas_ > 0) paso.marcas |= Paso::enviado;
    if (EsBlanco(forma.Parametro(2))) paso.marcas |= Paso::enBlanco;
    condicionDeFila_ = 0;
    agregadas_ = 0;
    if (LineaDe(forma.Linea()).lugar.parte != Parte::Ninguna) return notas_.Anotar(paso);
    // SL_SEND, which was called by the line that counts.
    if (const auto campo = forma.Parametro(1); campo.datos != nullptr) paso.numero = NumeroDeFila(campo.Texto());
    pendiente_ = paso;
}

// FORM COND_CHECK USING CONDITION CHANGING RESULT.
void PerfilDeEnsayo::VuelveCondicion(const abap::FormaTerminada& forma) {
    const auto campo = forma.Parametro(0);
    const bool cierta = EsSi(forma.Parametro(1));
    if (campo.datos != nullptr) {
        nombre_ = SinBlancosDetras(campo.Texto());
        if (const auto lugar = condicion_.find(nombre_); lugar != condicion_.end()) {
            auto& total = condiciones_[lugar->second];
            ++total.veces;
            if (cierta) ++total.ciertas;
        }
    }
    const auto marcas = static_cast<std::uint8_t>(cierta ? Paso::cierta : 0);
    const auto parte = LineaDe(forma.Linea()).lugar.parte;
    if (parte == Parte::Ninguna) {
        condicionDeFila_ = Paso::preguntado | marcas;  // of FORM DYNPRO
    } else if (parte == Parte::Programa) {
        notas_.Anotar({static_cast<std::uint32_t>(forma.Linea()), 0, Paso::Clase::Condicion, marcas});
    }
}

}  // namespace qor
