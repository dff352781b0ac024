#include "abap/compile/table_statements.h"
#include "abap/values/conversion.h"
#include "abap/values/table_rows.h"
#include "base/text.h"

// Assignments, and what points to fields.
namespace qor::abap {

namespace {

void Apuntar(Enlace& enlace, const Campo& campo, const Estructura* estructura) {
    enlace.campo = campo;
    enlace.estructura = estructura;
    enlace.tabla = nullptr;
    enlace.asignado = true;
}

// A table as a whole: its body, or a table that has no header line.
std::optional<OperandoDeTabla> CuerpoDeTabla(Compilador& c, const Palabra& palabra) {
    auto tabla = c.BuscarTabla(palabra);
    if (!tabla || (tabla->cabecera && !palabra.texto.ends_with("[]"))) return {};
    return tabla;
}

bool LeerCopiaDeTabla(Compilador& c, const Palabra& origen, const Palabra& destino) {
    auto hasta = CuerpoDeTabla(c, destino);
    if (!hasta) return false;
    auto desde = CuerpoDeTabla(c, origen);
    if (!desde) throw FallaDeSentencia{origen, std::string(origen.texto) + " is no internal table as a whole"};
    c.EmitirAccion([desde = std::move(*desde), hasta = std::move(*hasta)](Maquina& maquina) {
        CopiarTabla(maquina.Tabla(desde), maquina.Tabla(hasta));
    });
    return true;
}

std::unique_ptr<Expresion> ExpresionDe(Operando campo) {
    auto expresion = std::make_unique<Expresion>();
    expresion->campo = std::move(campo);
    return expresion;
}

void EmitirMovimiento(Compilador& c, Operando origen, Operando destino) {
    c.EmitirAccion([origen = std::move(origen), destino = std::move(destino)](Maquina& maquina) {
        Mover(maquina.Resolver(origen), maquina.Destino(destino));
    });
}

void EmitirCalculo(Compilador& c, std::unique_ptr<Expresion> expresion, Operando destino) {
    c.EmitirAccion([expresion = std::move(expresion), destino = std::move(destino)](Maquina& maquina) {
        Asignar(maquina, *expresion, destino);
    });
}

// The component of a name or of a number from 1; null where there is none.
const Componente* BuscarComponente(Maquina& maquina, const Operando& cual, const Estructura& estructura) {
    const Campo campo = maquina.Resolver(cual);
    if (campo.tipo == Tipo::C || campo.tipo == Tipo::Cadena) return estructura.Buscar(Mayusculas(SinBlancosDetras(campo.Texto())));
    const std::int64_t numero = maquina.Entero(cual);
    const auto cuantos = static_cast<std::int64_t>(estructura.componentes.size());
    return numero < 1 || numero > cuantos ? nullptr : &estructura.componentes[static_cast<std::size_t>(numero - 1)];
}

// ASSIGN COMPONENT name or number OF STRUCTURE.
void EmitirAsignacionDeComponente(Compilador& c, Operando cual, Operando estructura, Operando simbolo) {
    c.EmitirAccion([cual = std::move(cual), estructura = std::move(estructura), simbolo = std::move(simbolo)](Maquina& maquina) {
        const Campo todo = maquina.Resolver(estructura);
        const Estructura* suya = maquina.EstructuraDe(estructura);
        const Componente* componente = suya == nullptr ? nullptr : BuscarComponente(maquina, cual, *suya);
        maquina.PonerSubrc(componente == nullptr ? 4 : 0);
        if (componente == nullptr) return;
        Campo campo = CampoDeComponente(*componente, todo.datos);
        campo.soloLectura = todo.soloLectura;
        Apuntar(maquina.EnlaceDe(simbolo), campo, componente->tipo.estructura);
    });
}

// CLEAR ... WITH: every character becomes the first one of the other field.
void EmitirLimpiezaCon(Compilador& c, Operando campo, Operando con) {
    c.EmitirAccion([campo = std::move(campo), con = std::move(con)](Maquina& maquina) {
        const Campo suyo = maquina.Destino(campo);
        const auto texto = maquina.Resolver(con).Texto();
        const char caracter = texto.empty() ? ' ' : texto.front();
        if (suyo.tipo == Tipo::Cadena)
            suyo.cadena->assign(suyo.cadena->size(), caracter);
        else
            std::memset(suyo.datos, caracter, suyo.largo);
    });
}

}  // namespace

void Compilador::EmitirVaciado(OperandoDeTabla tabla) {
    EmitirAccion([tabla = std::move(tabla)](Maquina& maquina) { maquina.Tabla(tabla).Vaciar(); });
}

void Compilador::EmitirLimpieza(Operando campo) {
    EmitirAccion(
        [campo = std::move(campo)](Maquina& maquina) { PonerInicial(maquina.Destino(campo), maquina.EstructuraDe(campo)); });
}

// NAME = expression, also NAME = NAME = expression: from the right to the left.
void Compilador::LeerAsignacion(Lectura& l) {
    std::vector<std::size_t> destinos;
    while (l.Hay() && l.Es("="_c, 1)) {
        destinos.push_back(l.Lugar());
        l.Avanzar(2);
    }
    const std::size_t valor = l.Lugar();
    if (destinos.size() == 1 && l.Hay() && !l.Hay(1)) {
        l.Volver(destinos.front());
        const Palabra destino = l.Actual();
        l.Volver(valor);
        if (LeerCopiaDeTabla(*this, l.Actual(), destino)) return;
    }
    auto expresion = LeerExpresion(l);
    l.Fin();
    for (auto i = destinos.rbegin(); i != destinos.rend(); ++i) {
        l.Volver(*i);
        Operando destino = LeerDestino(l);
        const Operando otra = destino;
        if (expresion->EsCampo())
            EmitirMovimiento(*this, std::move(expresion->campo), std::move(destino));
        else
            EmitirCalculo(*this, std::move(expresion), std::move(destino));
        expresion = ExpresionDe(otra);
    }
    l.Resto();
}

void Compilador::LeerMOVE(Lectura& l) {
    if (l.Hay() && l.Es("TO"_c, 1) && l.Hay(2) && LeerCopiaDeTabla(*this, l.Actual(), l.Mirar(2))) {
        l.Avanzar(3);
        return l.Fin();
    }
    Operando origen = LeerOperando(l);
    l.Exige("TO"_c, "TO");
    Operando destino = LeerDestino(l);
    l.Fin();
    EmitirMovimiento(*this, std::move(origen), std::move(destino));
}

// ADD a TO b, SUBTRACT a FROM b; MULTIPLY a BY b, DIVIDE a BY b.
void Compilador::LeerCuenta(Lectura& l, char operador, Clave enlace) {
    const bool primeroElDestino = enlace == "BY"_c;
    Operando a = primeroElDestino ? LeerDestino(l) : LeerOperando(l);
    l.Exige(enlace, primeroElDestino ? "BY" : operador == '+' ? "TO" : "FROM");
    Operando b = primeroElDestino ? LeerOperando(l) : LeerDestino(l);
    l.Fin();
    Operando destino = primeroElDestino ? a : b;
    auto expresion = std::make_unique<Expresion>();
    expresion->clase = Expresion::Clase::Operacion;
    expresion->operador = operador;
    expresion->a = ExpresionDe(primeroElDestino ? std::move(a) : destino);
    expresion->b = ExpresionDe(primeroElDestino ? std::move(b) : std::move(a));
    EmitirCalculo(*this, std::move(expresion), std::move(destino));
}

void Compilador::LeerMOVE_CORRESPONDING(Lectura& l) {
    const Palabra palabra = l.Actual();
    const Operando origen = LeerCampo(l);
    l.Exige("TO"_c, "TO");
    const Operando destino = LeerDestino(l);
    l.Fin();
    if (origen.estructura == nullptr || destino.estructura == nullptr) {
        throw FallaDeSentencia{palabra, "two structures whose components are known were expected"};
    }
    for (const auto& componente : origen.estructura->componentes) {
        const Componente* otro = destino.estructura->Buscar(componente.nombre);
        if (otro != nullptr) EmitirMovimiento(*this, ComponenteDe(origen, componente), ComponenteDe(destino, *otro));
    }
}

void Compilador::LeerCLEAR(Lectura& l) {
    if (auto tabla = l.Hay() ? CuerpoDeTabla(*this, l.Actual()) : std::nullopt) {
        l.Avanzar();
        l.Fin();
        EmitirVaciado(std::move(*tabla));
        return;
    }
    Operando campo = LeerDestino(l);
    if (l.Toma("WITH"_c)) {
        Operando con = LeerOperando(l);
        l.Fin();
        return EmitirLimpiezaCon(*this, std::move(campo), std::move(con));
    }
    l.Fin();
    EmitirLimpieza(std::move(campo));
}

void Compilador::AsignarSimbolo(const Operando& simbolo, const Operando& campo) {
    EmitirAccion([simbolo, campo](Maquina& maquina) {
        const Campo suyo = maquina.Resolver(campo);
        if (maquina.EsParteDeCadena(campo)) throw Volcado("ASSIGN_TYPE_CONFLICT", "A part of a STRING can't be assigned");
        if (!simbolo.dinamico && suyo.largo < simbolo.campo.largo) {
            throw Volcado("ASSIGN_TYPE_CONFLICT", "The field is shorter than the structure of the field-symbol");
        }
        Apuntar(maquina.EnlaceDe(simbolo), suyo, maquina.EstructuraDe(campo));
    });
}

void Compilador::LeerASSIGN(Lectura& l) {
    const auto simbolo = [this, &l] {
        l.Exige("TO"_c, "TO");
        return LeerSimbolo(*this, l);
    };
    if (l.Toma("COMPONENT"_c)) {
        Operando cual = LeerOperando(l);
        l.Exige("OF"_c, "OF STRUCTURE");
        l.Exige("STRUCTURE"_c, "STRUCTURE");
        Operando estructura = LeerCampo(l);
        Operando suyo = simbolo();
        l.Fin();
        return EmitirAsignacionDeComponente(*this, std::move(cual), std::move(estructura), std::move(suyo));
    }
    if (l.Hay() && l.Actual().texto.starts_with('(')) l.NoSePractica();
    const Operando campo = LeerCampo(l);
    const Operando suyo = simbolo();
    l.Fin();
    AsignarSimbolo(suyo, campo);
}

void Compilador::LeerUNASSIGN(Lectura& l) {
    const Palabra palabra = l.Actual();
    Operando simbolo = LeerCampo(l);
    l.Fin();
    if (simbolo.base != Base::EnlaceGlobal && simbolo.base != Base::EnlaceLocal)
        throw FallaDeSentencia{palabra, "a field-symbol was expected"};
    EmitirAccion([simbolo = std::move(simbolo)](Maquina& maquina) { maquina.EnlaceDe(simbolo) = {}; });
}

}  // namespace qor::abap
