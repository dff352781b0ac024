#include "abap/compile/compiler.h"
#include "abap/values/conversion.h"
#include "base/text.h"

// FORM, PERFORM, and the events.
namespace qor::abap {

namespace {

class Llamado : public Instruccion {
public:
    Llamado(const Rutina& rutina, std::vector<Argumento> argumentos) : rutina_(rutina), argumentos_(std::move(argumentos)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        maquina.Llamar(rutina_, argumentos_);
        return siguiente;
    }

private:
    const Rutina& rutina_;
    std::vector<Argumento> argumentos_;
};

bool EmpiezaParametros(const Lectura& l) { return l.EsAlguna({"USING"_c, "CHANGING"_c}); }

// VALUE(NAME): the name between the brackets.
std::string_view EntreParentesis(std::string_view texto) {
    const auto abre = texto.find('(');
    return texto.substr(abre + 1, texto.size() - abre - 2);
}

}  // namespace

Rutina& Compilador::NuevaRutina(std::string nombre) {
    Rutina& rutina = programa_->rutinas.emplace_back();
    rutina.nombre = std::move(nombre);
    rutina.numero = programa_->rutinas.size() - 1;
    return rutina;
}

Rutina& Compilador::PedirForma(const Palabra& nombre) {
    Rutina*& rutina = formas_[nombre.clave];
    if (rutina == nullptr) rutina = &NuevaRutina(Mayusculas(nombre.texto));
    LlamadaPendiente llamada;
    llamada.palabra = nombre;
    llamada.rutina = rutina;
    llamadas_.push_back(std::move(llamada));
    return *rutina;
}

void Compilador::EmpezarRutina(Rutina& rutina, bool esForma) {
    TerminarRutina();
    rutina_ = &rutina;
    enForma_ = esForma;
    locales_.clear();
    tiposLocales_.clear();
}

void Compilador::TerminarRutina() {
    for (const auto& bloque : bloques_) {
        if (!sinBloques_) Faltar(bloque.palabra, std::string(bloque.palabra.texto) + " is not ended");
    }
    bloques_.clear();
    sinBloques_ = false;
    enForma_ = false;
}

void Compilador::EmpezarEvento(Rutina*& rutina, std::string_view nombre) {
    if (rutina == nullptr) rutina = &NuevaRutina(std::string(nombre));
    EmpezarRutina(*rutina, false);
}

// AT SELECTION-SCREEN and what users do with the list; AT NEW and its kin belong to a loop.
void Compilador::LeerAT(Lectura& l) {
    if (l.Toma("SELECTION-SCREEN"_c)) {
        const bool corre = !l.Hay() || (l.Es("ON"_c) && !l.EsAlguna({"VALUE-REQUEST"_c, "HELP-REQUEST"_c, "EXIT-COMMAND"_c}, 1));
        Rutina& rutina = NuevaRutina("AT SELECTION-SCREEN");
        EmpezarRutina(rutina, false);
        if (corre) programa_->pantallas.push_back(&rutina);
        return;
    }
    EmpezarRutina(NuevaRutina("AT " + std::string(l.Actual().texto)), false);
}

// ---- FORM ----

void Compilador::LeerFORM(Lectura& l) {
    const Palabra palabra = l.Tomada();
    if (!EsNombreDeForma(palabra.texto)) throw FallaDeSentencia{palabra, "no FORM can have this name"};
    Rutina*& suya = formas_[palabra.clave];
    if (suya == nullptr) suya = &NuevaRutina(Mayusculas(palabra.texto));
    EmpezarRutina(*suya, true);
    if (suya->linea != 0) Faltar(palabra, "the FORM " + suya->nombre + " is there already");
    suya->linea = lineaDeSentencia_;
    suya->codigo.clear();
    suya->formales.clear();
    enum class Parte { Ninguna, Tablas, Usando, Cambiando } parte = Parte::Ninguna;
    while (l.Hay()) {
        if (l.Es("TABLES"_c)) {
            if (parte != Parte::Ninguna) l.Fallar("TABLES comes in front of all other parameters");
            l.Avanzar();
            parte = Parte::Tablas;
            continue;
        }
        if (EmpiezaParametros(l)) {
            parte = l.Tomada().clave == "USING"_c ? Parte::Usando : Parte::Cambiando;
            continue;
        }
        if (parte == Parte::Ninguna) l.NoSePractica();
        LeerFormal(l, *suya, parte == Parte::Tablas, parte == Parte::Cambiando);
    }
}

void Compilador::LeerFormal(Lectura& l, Rutina& rutina, bool tabla, bool cambia) {
    const Palabra palabra = l.Tomada();
    ParametroFormal formal;
    std::string_view nombre = palabra.texto;
    if (nombre.size() > 7 && nombre.back() == ')' && ClaveDe(nombre.substr(0, 6)) == "VALUE("_c) {
        nombre = EntreParentesis(nombre);
        formal.porValor = true;
        formal.devuelve = cambia;
    }
    if (!EsNombreDeDato(nombre)) throw FallaDeSentencia{palabra, "no parameter can have this name"};
    formal.tabla = tabla;
    formal.casilla = rutina.marco.enlaces++;
    std::optional<TipoConNombre> tipo;
    bool generico = false;
    if (l.EsAlguna({"TYPE"_c, "LIKE"_c, "STRUCTURE"_c}) && l.Hay(1)) {
        const bool como = l.Tomada().clave != "TYPE"_c;
        generico = l.Toma("ANY"_c);
        if (!como && (l.Toma("STANDARD"_c, "TABLE"_c) || l.Toma("TABLE"_c)))
            tipo = TipoConNombre{{Tipo::C, 0}, true};
        else if (!generico)
            tipo = LeerTipo(l, como);
    }
    Nombrado& nombrado = Declarar(palabra, nombre);
    formal.nombre = nombrado.nombre;
    Operando operando;
    operando.base = Base::EnlaceLocal;
    operando.casilla = formal.casilla;
    operando.dinamico = true;
    const bool conEstructura = tipo && !generico && tipo->tipo.estructura != nullptr && (tabla || !tipo->tabla);
    if (conEstructura) {
        operando.dinamico = false;
        operando.campo.tipo = Tipo::Estructura;
        operando.campo.largo = tipo->tipo.largo;
        operando.estructura = tipo->tipo.estructura;
        formal.minimo = tipo->tipo.largo;
    }
    if (tabla || (tipo && tipo->tabla)) {
        OperandoDeTabla suya;
        suya.base = Base::EnlaceLocal;
        suya.casilla = formal.casilla;
        suya.dinamica = !conEstructura;
        if (conEstructura)
            suya.linea = tipo->tipo;
        else if (tipo && tipo->tabla && tipo->tipo.largo > 0)
            suya.linea = tipo->tipo;
        if (tabla) suya.cabecera = operando;
        nombrado.tabla = std::move(suya);
    }
    if (tabla || !nombrado.tabla) nombrado.campo = std::move(operando);
    if (tabla) ++rutina.tablas;
    rutina.formales.push_back(std::move(formal));
}

// ---- PERFORM ----

void Compilador::LeerPERFORM(Lectura& l) {
    const Palabra nombre = l.Tomada();
    if (!EsNombreDeForma(nombre.texto)) throw FallaDeSentencia{nombre, std::string(nombre.texto) + " is no FORM of this report"};
    Rutina& rutina = PedirForma(nombre);
    std::vector<Argumento> argumentos;
    std::size_t tablas = 0;
    if (l.Toma("TABLES"_c)) {
        while (l.Hay() && !EmpiezaParametros(l)) {
            Argumento argumento;
            argumento.tabla = LeerTabla(l);
            argumentos.push_back(std::move(argumento));
            ++tablas;
        }
    }
    while (EmpiezaParametros(l)) {
        l.Avanzar();
        if (!l.Hay()) l.Fallar("a parameter was expected");
        while (l.Hay() && !EmpiezaParametros(l)) {
            Argumento argumento;
            argumento.operando = BuscarOperando(l.Actual());
            if (!argumento.operando) argumento.tabla = BuscarTabla(l.Actual());
            if (!argumento.operando && !argumento.tabla) LeerOperando(l);  // tells why it is none
            l.Avanzar();
            argumentos.push_back(std::move(argumento));
        }
    }
    l.Fin();
    auto& llamada = llamadas_.back();
    llamada.contar = true;
    llamada.tablas = tablas;
    llamada.parametros = argumentos.size() - tablas;
    Emitir<Llamado>(rutina, std::move(argumentos));
}

void Compilador::LeerLOCAL(Lectura& l) {
    const Palabra palabra = l.Actual();
    Operando campo = LeerDestino(l);
    l.Fin();
    if (!enForma_ || campo.base != Base::Global || campo.trozo || campo.EsDe(Tipo::Cadena)) {
        throw FallaDeSentencia{palabra, "LOCAL wants a global field within a FORM"};
    }
    rutina_->guardados.push_back(std::move(campo));
}

// Calls that give a FORM something else than it wants.
void Compilador::RevisarLlamadas() {
    for (const auto& llamada : llamadas_) {
        const Rutina& rutina = *llamada.rutina;
        if (rutina.linea == 0) continue;  // only the call finds out
        const std::size_t parametros = rutina.formales.size() - rutina.tablas;
        if (llamada.contar ? llamada.tablas == rutina.tablas && llamada.parametros == parametros : rutina.formales.empty())
            continue;
        Faltar(llamada.palabra, "the FORM " + rutina.nombre + " has " + std::to_string(rutina.tablas) + " tables and " +
                                    std::to_string(parametros) + " parameters");
    }
}

}  // namespace qor::abap
