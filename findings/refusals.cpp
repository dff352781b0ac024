#include "findings/refusals.h"

#include <algorithm>
#include <array>

#include "base/failure.h"
#include "base/text.h"
#include "model/cells.h"
#include "model/control_characters.h"
#include "model/gaps.h"

namespace qor {

namespace {

struct CodigoDeMensaje {
    int mensaje;
    int codigo;
};

// By the first number of a message.
constexpr std::array<CodigoDeMensaje, 32> codigos = {{
    {302, 102}, {315, 104}, {380, 105}, {381, 106}, {378, 108}, {379, 109}, {303, 111}, {304, 111},
    {305, 112}, {306, 112}, {392, 113}, {402, 114}, {367, 115}, {318, 116}, {322, 117}, {384, 118},
    {326, 120}, {316, 121}, {308, 201}, {312, 202}, {310, 203}, {319, 204}, {386, 205}, {368, 206},
    {371, 206}, {369, 207}, {320, 208}, {321, 209}, {372, 210}, {400, 407}, {390, 424}, {391, 425},
}};

constexpr int codigoSinReturn = 426;  // its message begins with the BAPI's name, which is no number
constexpr int codigoSinIdentificadores = 107;
constexpr int codigoDeParMalEscrito = 210;
constexpr int codigoDeTextoQueNoCabe = 120;

int CodigoDe(const Observacion& observacion) {
    const auto& numeros = observacion.mensaje.numeros;
    if (numeros.empty()) return codigoSinIdentificadores;
    if (numeros.front() == 395) return codigoSinReturn;
    const Lugar& lugar = observacion.lugar;
    const bool conversion = lugar.parte == Lugar::Parte::Archivo && lugar.columna == 3 && lugar.linea > 0;
    if (numeros.front() == 326 && conversion) return codigoDeParMalEscrito;
    const auto par = std::find_if(codigos.begin(), codigos.end(),
                                  [&](const CodigoDeMensaje& codigo) { return codigo.mensaje == numeros.front(); });
    return par == codigos.end() ? codigoDeTextoQueNoCabe : par->codigo;
}

// The sentence of a message that a box would show in several lines.
std::string EnUnaLinea(std::string_view texto) { return ReemplazarTodo(ReemplazarTodo(texto, "\r\n", " "), "\r\r", " "); }

// A row with a wrong condition in its column of screens is shown and let pass when the one of its field is right.
bool EstaAnulada(const Observacion& observacion, const std::vector<Observacion>& todas, const Especificacion& especificacion) {
    const int numero = observacion.mensaje.Numero();
    const Lugar& lugar = observacion.lugar;
    if ((numero != 368 && numero != 369) || lugar.columna != 1) return false;
    if (!Contiene(especificacion.TablaTransaccion[lugar.fila].campo, ";")) return false;
    const Lugar enCampo = Lugar::EnPrograma(lugar.fila, 2);
    return std::none_of(todas.begin(), todas.end(), [&](const Observacion& otra) {
        return otra.lugar == enCampo && (otra.mensaje.Numero() == 369 || otra.mensaje.Numero() == 371);
    });
}

bool RegistroVacio(const Generacion& g, int cabeza) {
    const auto cabezas = CabezasStepLoop(g.especificacion);
    const auto n = std::find(cabezas.begin(), cabezas.end(), cabeza) - cabezas.begin() + 1;
    const bool contador = g.analisis.ArchivoUnico && g.analisis.HayStepSinClave;
    const bool claves = !g.opciones.EntradaDeTabla() && g.analisis.operaciones.ContarCamposClave(static_cast<int>(n)) > 0;
    return !contador && !claves;
}

// A note of a row can be read as far as a run reads it: the first mark of every row, the others of a head, and the keys of a row
// within the table.
bool MarcasLegibles(const Especificacion& especificacion, int fila, int filas) {
    const std::string& nota = especificacion.TablaTransaccion[fila].nota;
    if (!Contiene(nota, "!")) return true;
    try {
        if (EsCabezaStepLoop(nota)) {
            for (const int marca : {2, 3, 5, 6, 7}) ValorDeMarca(nota, marca);
        } else if (fila < filas) {
            ValorDeMarca(nota, 7);
        }
    } catch (const FalloDeEjecucion&) {
        return false;
    }
    return true;
}

}  // namespace

void HallazgosDeObservaciones(const Generacion& g, const std::vector<Observacion>& observaciones, std::vector<Hallazgo>& lista) {
    for (const auto& observacion : observaciones) {
        const int codigo = CodigoDe(observacion);
        const auto celda = TextoEnLugar(g.especificacion, g.opciones, g.preferencias, observacion.lugar);
        const int mensaje = observacion.mensaje.Numero();
        const bool deMensaje = codigo != codigoDeTextoQueNoCabe && codigo != codigoSinIdentificadores;
        Hallazgo hallazgo = NuevoHallazgo(g.textos, codigo, observacion.lugar, celda, {observacion.mensaje.texto});
        hallazgo.mensaje = mensaje;
        if (deMensaje) hallazgo.texto = mensaje == 326 ? g.textos.Texto(372) : EnUnaLinea(observacion.mensaje.texto);
        if (codigo == 121 && !RegistroVacio(g, observacion.lugar.fila)) hallazgo.gravedad = Gravedad::Aviso;
        if (EstaAnulada(observacion, observaciones, g.especificacion)) hallazgo.gravedad = Gravedad::Aviso;
        lista.push_back(std::move(hallazgo));
    }
}

void HallazgosDeForma(const Generacion& g, std::vector<Hallazgo>& lista) {
    Libreta libreta(g, lista);
    for (const auto& caracter : BuscarCaracteresDeControl(g.especificacion, g.opciones)) {
        libreta.Agregar(101, caracter.sitio, {MensajeDe(caracter).texto});
    }
    for (const auto& hueco : BuscarHuecos(g.especificacion)) {
        libreta.Agregar(103, hueco);
        lista.back().mensaje = 373;
        lista.back().texto = g.textos.Texto(373);
    }
}

std::vector<int> FilasConMarcasIlegibles(const Especificacion& especificacion) {
    std::vector<int> ilegibles;
    const int filas = especificacion.FilasTransaccion();
    for (int r = 0; r <= ultimaFila; ++r) {
        if (!MarcasLegibles(especificacion, r, filas)) ilegibles.push_back(r);
    }
    return ilegibles;
}

}  // namespace qor
