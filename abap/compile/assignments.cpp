#include "abap/compile/compiler.h"
#include "abap/values/conversion.h"
#include "base/text.h"

// Assignments, and what points to fields.
namespace qor::abap {

namespace {

class Movimiento : public Instruccion {
public:
    Movimiento(Operando origen, Operando destino) : origen_(std::move(origen)), destino_(std::move(destino)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        Mover(maquina.Resolver(origen_), maquina.Destino(destino_));
        return siguiente;
    }

private:
    Operando origen_;
    Operando destino_;
};

class Calculado : public Instruccion {
public:
    Calculado(std::unique_ptr<Expresion> expresion, Operando destino)
        : expresion_(std::move(expresion)), destino_(std::move(destino)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        Asignar(maquina, *expresion_, destino_);
        return siguiente;
    }

private:
    std::unique_ptr<Expresion> expresion_;
    Operando destino_;
};

// All rows of a table into another one.
class CopiaDeTabla : public Instruccion {
public:
    CopiaDeTabla(OperandoDeTabla origen, OperandoDeTabla destino) : origen_(std::move(origen)), destino_(std::move(destino)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const TablaInterna& origen = maquina.Tabla(origen_);
        TablaInterna& destino = maquina.Tabla(destino_);
        if (&origen == &destino) return siguiente;
        destino.Vaciar();
        for (std::size_t i = 0; i < origen.Filas(); ++i) {
            std::uint8_t* fila = destino.Agregar();
            const TipoDeCampo& tipo = destino.Linea();
            Campo suya;
            suya.datos = fila;
            suya.largo = tipo.largo;
            suya.tipo = tipo.tipo;
            suya.decimales = tipo.decimales;
            PonerInicial(suya, tipo.estructura);
            Mover(origen.CampoDeFila(i), suya);
        }
        return siguiente;
    }

private:
    OperandoDeTabla origen_;
    OperandoDeTabla destino_;
};

class Limpieza : public Instruccion {
public:
    explicit Limpieza(Operando campo) : campo_(std::move(campo)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        PonerInicial(maquina.Destino(campo_), maquina.EstructuraDe(campo_));
        return siguiente;
    }

private:
    Operando campo_;
};

// CLEAR ... WITH: every character becomes the first one of the other field.
class LimpiezaCon : public Instruccion {
public:
    LimpiezaCon(Operando campo, Operando con) : campo_(std::move(campo)), con_(std::move(con)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Campo campo = maquina.Destino(campo_);
        const auto con = maquina.Resolver(con_).Texto();
        const char caracter = con.empty() ? ' ' : con.front();
        if (campo.tipo == Tipo::Cadena)
            campo.cadena->assign(campo.cadena->size(), caracter);
        else
            std::memset(campo.datos, caracter, campo.largo);
        return siguiente;
    }

private:
    Operando campo_;
    Operando con_;
};

class LimpiezaDeTabla : public Instruccion {
public:
    explicit LimpiezaDeTabla(OperandoDeTabla tabla) : tabla_(std::move(tabla)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        maquina.Tabla(tabla_).Vaciar();
        return siguiente;
    }

private:
    OperandoDeTabla tabla_;
};

void Apuntar(Enlace& enlace, const Campo& campo, const Estructura* estructura) {
    enlace.campo = campo;
    enlace.estructura = estructura;
    enlace.tabla = nullptr;
    enlace.asignado = true;
}

class Asignacion : public Instruccion {
public:
    Asignacion(Operando campo, Operando simbolo) : campo_(std::move(campo)), simbolo_(std::move(simbolo)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Campo campo = maquina.Resolver(campo_);
        if (!simbolo_.dinamico && campo.largo < simbolo_.campo.largo) {
            throw Volcado("ASSIGN_TYPE_CONFLICT", "The field is shorter than the structure of the field-symbol");
        }
        Apuntar(maquina.EnlaceDe(simbolo_), campo, maquina.EstructuraDe(campo_));
        return siguiente;
    }

private:
    Operando campo_;
    Operando simbolo_;
};

// ASSIGN COMPONENT name or number OF STRUCTURE.
class AsignacionDeComponente : public Instruccion {
public:
    AsignacionDeComponente(Operando componente, Operando estructura, Operando simbolo)
        : componente_(std::move(componente)), estructura_(std::move(estructura)), simbolo_(std::move(simbolo)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Campo todo = maquina.Resolver(estructura_);
        const Estructura* estructura = maquina.EstructuraDe(estructura_);
        const Componente* componente = estructura == nullptr ? nullptr : Buscar(maquina, *estructura);
        maquina.PonerSubrc(componente == nullptr ? 4 : 0);
        if (componente != nullptr) {
            Campo campo = CampoDeComponente(*componente, todo.datos);
            campo.soloLectura = todo.soloLectura;
            Apuntar(maquina.EnlaceDe(simbolo_), campo, componente->tipo.estructura);
        }
        return siguiente;
    }

private:
    const Componente* Buscar(Maquina& maquina, const Estructura& estructura) const {
        const Campo cual = maquina.Resolver(componente_);
        if (cual.tipo == Tipo::C || cual.tipo == Tipo::Cadena) {
            auto nombre = cual.Texto();
            while (nombre.ends_with(' ')) nombre.remove_suffix(1);
            return estructura.Buscar(Mayusculas(nombre));
        }
        const std::int64_t numero = maquina.Entero(componente_);
        const auto cuantos = static_cast<std::int64_t>(estructura.componentes.size());
        return numero < 1 || numero > cuantos ? nullptr : &estructura.componentes[static_cast<std::size_t>(numero - 1)];
    }

    Operando componente_;
    Operando estructura_;
    Operando simbolo_;
};

class Desasignacion : public Instruccion {
public:
    explicit Desasignacion(Operando simbolo) : simbolo_(std::move(simbolo)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        maquina.EnlaceDe(simbolo_) = {};
        return siguiente;
    }

private:
    Operando simbolo_;
};

// A table as a whole: its body, or a table that has no header line.
std::optional<OperandoDeTabla> CuerpoDeTabla(Compilador& c, const Palabra& palabra) {
    auto tabla = c.BuscarTabla(palabra);
    if (!tabla || (tabla->cabecera && !palabra.texto.ends_with("[]"))) return {};
    return tabla;
}

bool CopiarTabla(Compilador& c, const Palabra& origen, const Palabra& destino) {
    auto hasta = CuerpoDeTabla(c, destino);
    if (!hasta) return false;
    auto desde = CuerpoDeTabla(c, origen);
    if (!desde) throw FallaDeSentencia{origen, std::string(origen.texto) + " is no internal table as a whole"};
    c.Emitir<CopiaDeTabla>(std::move(*desde), std::move(*hasta));
    return true;
}

std::unique_ptr<Expresion> ExpresionDe(Operando campo) {
    auto expresion = std::make_unique<Expresion>();
    expresion->campo = std::move(campo);
    return expresion;
}

}  // namespace

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
        if (CopiarTabla(*this, l.Actual(), destino)) return;
    }
    auto expresion = LeerExpresion(l);
    l.Fin();
    for (auto i = destinos.rbegin(); i != destinos.rend(); ++i) {
        l.Volver(*i);
        Operando destino = LeerDestino(l);
        const Operando otra = destino;
        if (expresion->EsCampo())
            Emitir<Movimiento>(std::move(expresion->campo), std::move(destino));
        else
            Emitir<Calculado>(std::move(expresion), std::move(destino));
        expresion = ExpresionDe(otra);
    }
    l.Resto();
}

void Compilador::LeerMOVE(Lectura& l) {
    if (l.Hay() && l.Es("TO"_c, 1) && l.Hay(2) && CopiarTabla(*this, l.Actual(), l.Mirar(2))) {
        l.Avanzar(3);
        return l.Fin();
    }
    Operando origen = LeerOperando(l);
    l.Exige("TO"_c, "TO");
    Operando destino = LeerDestino(l);
    l.Fin();
    Emitir<Movimiento>(std::move(origen), std::move(destino));
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
    Emitir<Calculado>(std::move(expresion), std::move(destino));
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
        if (otro != nullptr) Emitir<Movimiento>(ComponenteDe(origen, componente), ComponenteDe(destino, *otro));
    }
}

void Compilador::LeerCLEAR(Lectura& l) {
    if (auto tabla = l.Hay() ? CuerpoDeTabla(*this, l.Actual()) : std::nullopt) {
        l.Avanzar();
        l.Fin();
        Emitir<LimpiezaDeTabla>(std::move(*tabla));
        return;
    }
    Operando campo = LeerDestino(l);
    if (l.Toma("WITH"_c)) {
        Operando con = LeerOperando(l);
        l.Fin();
        Emitir<LimpiezaCon>(std::move(campo), std::move(con));
        return;
    }
    l.Fin();
    Emitir<Limpieza>(std::move(campo));
}

void Compilador::AsignarSimbolo(const Operando& simbolo, const Operando& campo) { Emitir<Asignacion>(campo, simbolo); }

void Compilador::LeerASSIGN(Lectura& l) {
    const auto simbolo = [this, &l] {
        l.Exige("TO"_c, "TO");
        const Palabra& palabra = l.Tomada();
        const Nombrado* nombrado = BuscarNombre(palabra.clave);
        if (nombrado == nullptr || !nombrado->simbolo)
            throw FallaDeSentencia{palabra, std::string(palabra.texto) + " is no field-symbol"};
        return *nombrado->campo;
    };
    if (l.Toma("COMPONENT"_c)) {
        Operando componente = LeerOperando(l);
        l.Exige("OF"_c, "OF STRUCTURE");
        l.Exige("STRUCTURE"_c, "STRUCTURE");
        Operando estructura = LeerCampo(l);
        Operando suyo = simbolo();
        l.Fin();
        Emitir<AsignacionDeComponente>(std::move(componente), std::move(estructura), std::move(suyo));
        return;
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
    Emitir<Desasignacion>(std::move(simbolo));
}

}  // namespace qor::abap
