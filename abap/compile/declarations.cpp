#include "abap/compile/compiler.h"
#include "abap/values/conversion.h"
#include "base/text.h"

// DATA and its kin.
namespace qor::abap {

namespace {

constexpr std::uint32_t largoMaximo = 65535;
constexpr int decimalesMaximos = 14;

TipoDeCampo TipoDe(const Operando& operando) {
    return {operando.campo.tipo, operando.campo.largo, operando.campo.decimales, operando.estructura};
}

// Type and length without anything else said.
std::optional<TipoDeCampo> TipoElemental(std::string_view nombre) {
    switch (ClaveDe(nombre)) {
        case "C"_c: return TipoDeCampo{Tipo::C, 1};
        case "N"_c: return TipoDeCampo{Tipo::N, 1};
        case "D"_c: return TipoDeCampo{Tipo::D, 8};
        case "T"_c: return TipoDeCampo{Tipo::T, 6};
        case "I"_c: return TipoDeCampo{Tipo::I, 4};
        case "P"_c: return TipoDeCampo{Tipo::P, 8};
        case "F"_c: return TipoDeCampo{Tipo::F, 8};
        case "X"_c: return TipoDeCampo{Tipo::X, 1};
        case "STRING"_c: return TipoDeCampo{Tipo::Cadena, 0};
        default: return {};
    }
}

bool TieneLargo(Tipo tipo) { return tipo == Tipo::C || tipo == Tipo::N || tipo == Tipo::X || tipo == Tipo::P; }

std::uint32_t Alineado(std::size_t lugar, std::uint32_t alineacion) {
    return static_cast<std::uint32_t>((lugar + alineacion - 1) / alineacion * alineacion);
}

std::uint32_t AlineacionDe(const TipoDeCampo& tipo) {
    if (tipo.tipo == Tipo::Estructura) return tipo.estructura->alineacion;
    if (tipo.tipo == Tipo::I) return 4;
    return tipo.tipo == Tipo::F ? 8 : 1;
}

// The number behind OCCURS and INITIAL SIZE.
std::uint32_t LeerVeces(Lectura& l) {
    const auto texto = l.Tomada().texto;
    return EsEntero(texto) ? static_cast<std::uint32_t>(ValorEntero(texto)) : 0;
}

bool EsDeGrupo(std::string_view nombre) {
    const auto raya = nombre.find("ITABSL_");
    return raya == 0 || (raya != std::string_view::npos && raya >= 2 && raya <= 4 && nombre[raya - 1] == '_');
}

}  // namespace

// ---- Storage ----

Estructura& Compilador::NuevaEstructura(std::string nombre) {
    Estructura& estructura = programa_->estructuras.emplace_back();
    estructura.nombre = std::move(nombre);
    return estructura;
}

const Estructura& Compilador::BuscarEnDiccionario(std::string_view nombre) {
    const std::string enMayusculas = Mayusculas(nombre);
    const auto componentes = usados_.De(enMayusculas);
    return diccionario_.BuscarEstructura({enMayusculas, componentes});
}

Operando Compilador::NuevoCampo(const TipoDeCampo& tipo, bool global) {
    DisenoDeMarco& marco = global ? programa_->global : rutina_->marco;
    Operando operando;
    operando.base = global ? Base::Global : Base::Local;
    operando.campo.tipo = tipo.tipo;
    operando.campo.largo = tipo.largo;
    operando.campo.decimales = tipo.decimales;
    operando.estructura = tipo.estructura;
    if (tipo.tipo == Tipo::Cadena) {
        operando.lugar = static_cast<std::uint32_t>(marco.cadenas.size());
        marco.cadenas.emplace_back();
        return operando;
    }
    operando.lugar = Alineado(marco.datos.size(), AlineacionDe(tipo));
    marco.datos.resize(operando.lugar + tipo.largo);
    Campo inicial = operando.campo;
    inicial.datos = marco.datos.data() + operando.lugar;
    PonerInicial(inicial, tipo.estructura);
    return operando;
}

OperandoDeTabla Compilador::NuevaTabla(const TipoDeCampo& linea, std::string_view nombre, bool conCabecera, bool global) {
    DisenoDeMarco& marco = global ? programa_->global : rutina_->marco;
    OperandoDeTabla tabla;
    tabla.base = global ? Base::Global : Base::Local;
    tabla.casilla = static_cast<std::uint32_t>(marco.tablas.size());
    tabla.linea = linea;
    marco.tablas.push_back(linea);
    const bool vigilada = global && EsDeGrupo(nombre);
    marco.vigiladas.push_back(vigilada);
    if (vigilada) programa_->grupos.push_back({std::string(nombre), tabla.casilla});
    if (conCabecera) tabla.cabecera = NuevoCampo(linea, global);
    return tabla;
}

void Compilador::PonerValorInicial(const Operando& campo, const Operando& valor) {
    DisenoDeMarco& marco = campo.base == Base::Global ? programa_->global : rutina_->marco;
    Campo destino = campo.campo;
    destino.soloLectura = false;
    if (destino.tipo == Tipo::Cadena)
        destino.cadena = &marco.cadenas[campo.lugar];
    else
        destino.datos = marco.datos.data() + campo.lugar;
    Campo origen = valor.campo;
    if (valor.base != Base::Literal) {  // a constant
        DisenoDeMarco& suyo = valor.base == Base::Global ? programa_->global : rutina_->marco;
        if (origen.tipo == Tipo::Cadena)
            origen.cadena = &suyo.cadenas[valor.lugar];
        else
            origen.datos = suyo.datos.data() + valor.lugar;
    }
    Mover(origen, destino);
}

Nombrado& Compilador::Declarar(const Palabra& palabra, std::string_view nombre) {
    if (!EsNombreDeDato(nombre) && !EsSimboloDeCampo(nombre)) throw FallaDeSentencia{palabra, std::string(nombre) + " is no name"};
    auto& nombres = enForma_ ? locales_ : globales_;
    const auto [donde, nueva] = nombres.try_emplace(ClaveDe(nombre));
    if (!nueva) Faltar(palabra, std::string(nombre) + " is declared twice");
    donde->second = {};
    donde->second.nombre = Mayusculas(nombre);
    return donde->second;
}

// ---- Types ----

TipoConNombre Compilador::LeerTipo(Lectura& l, bool como) {
    const Palabra& palabra = l.Tomada();
    const auto referencia = LeerReferencia(palabra);
    if (!referencia || referencia->tieneDesplazamiento || referencia->tieneLargo)
        throw FallaDeSentencia{palabra, "a type was expected"};
    const Clave clave = ClaveDe(referencia->nombre);
    const auto parte = [&](const TipoDeCampo& todo) -> TipoDeCampo {
        if (!referencia->tieneComponente) return todo;
        Palabra componente = palabra;
        componente.texto = referencia->componentes;
        return ComponenteDe(componente, todo).tipo;
    };
    if (como) {
        if (const Nombrado* nombrado = BuscarNombre(clave)) {
            if (!nombrado->campo && nombrado->tabla) return {nombrado->tabla->linea, !referencia->tieneComponente};
            if (referencia->esCuerpo) return {nombrado->tabla->linea, true};
            if (nombrado->campo->dinamico) throw FallaDeSentencia{palabra, "nothing is known of the type of " + nombrado->nombre};
            return {parte(TipoDe(*nombrado->campo))};
        }
    } else {
        for (const auto* tipos : {&tiposLocales_, &tipos_}) {
            if (tipos == &tiposLocales_ && !enForma_) continue;
            if (const auto donde = tipos->find(clave); donde != tipos->end()) {
                if (donde->second.tabla) return donde->second;
                return {parte(donde->second.tipo)};
            }
        }
        if (clave == "XSTRING"_c || clave == "TABLE"_c || clave == "ANY"_c || clave == "OBJECT"_c) {
            throw FallaDeSentencia{palabra, std::string(palabra.texto) + " is not known here"};
        }
        if (const auto elemental = referencia->tieneComponente ? std::nullopt : TipoElemental(referencia->nombre))
            return {*elemental};
    }
    const std::string estructura = Mayusculas(referencia->nombre);
    if (referencia->tieneComponente) return {diccionario_.BuscarCampo(estructura, Mayusculas(referencia->componentes))};
    if (!como) {
        if (const auto elemento = diccionario_.BuscarElemento(estructura)) return {*elemento};
    }
    const Estructura& suya = BuscarEnDiccionario(estructura);
    return {{Tipo::Estructura, suya.largo, 0, &suya}};
}

// The length in brackets: digits, or a constant of whole numbers.
std::optional<std::uint32_t> Compilador::LargoDeclarado(std::string_view texto) const {
    if (EsEntero(texto)) return static_cast<std::uint32_t>(abap::ValorEntero(texto));
    const Nombrado* nombrado = BuscarNombre(ClaveDe(texto));
    if (nombrado == nullptr || !nombrado->campo || !nombrado->campo->constante || !nombrado->campo->EsDe(Tipo::I)) return {};
    if (nombrado->campo->base != Base::Global) return {};
    std::int32_t valor = 0;
    std::memcpy(&valor, programa_->global.datos.data() + nombrado->campo->lugar, sizeof valor);
    return valor < 0 ? std::optional<std::uint32_t>() : static_cast<std::uint32_t>(valor);
}

// What stands behind the name: a type, and whether it is one of internal tables.
TipoConNombre Compilador::LeerTipoDeDato(Lectura& l, const Declarado& declarado, bool& conCabecera) {
    TipoConNombre tipo{{Tipo::C, 1}};
    bool conTipo = false;
    if (l.EsAlguna({"TYPE"_c, "LIKE"_c})) {
        const bool como = l.Tomada().clave == "LIKE"_c;
        conTipo = true;
        const bool linea = l.Toma("LINE"_c, "OF"_c);
        const bool estandar = l.Toma("STANDARD"_c);
        const bool tabla = !linea && l.Toma("TABLE"_c, "OF"_c);
        if (estandar && !tabla) l.Fallar("TABLE OF was expected");
        if (l.EsAlguna({"SORTED"_c, "HASHED"_c, "REF"_c, "RANGE"_c}) && l.Hay(1)) l.NoSePractica();
        tipo = LeerTipo(l, como);
        if (linea) tipo.tabla = false;
        if (tabla) tipo.tabla = true;
    }
    if (declarado.tieneLargo) {
        const auto largo = declarado.cerrado ? LargoDeclarado(declarado.largo) : std::nullopt;
        if (!largo) l.Fallar("the length is no number");
        if (conTipo && !TieneLargo(tipo.tipo.tipo)) l.Fallar("this type has a length of its own");
        if (*largo == 0 || *largo > largoMaximo || (tipo.tipo.tipo == Tipo::P && *largo > 16))
            l.Fallar("no field can have this length");
        tipo.tipo.largo = *largo;
    }
    if (l.Toma("DECIMALS"_c)) {
        if (tipo.tipo.tipo != Tipo::P || !EsEntero(l.Actual().texto)) l.Fallar("only a packed number has decimals");
        if (abap::ValorEntero(l.Actual().texto) > decimalesMaximos) l.Fallar("a packed number has at most 14 decimals");
        tipo.tipo.decimales = static_cast<std::uint8_t>(abap::ValorEntero(l.Tomada().texto));
    }
    if (l.Toma("OCCURS"_c)) {
        tipo.ocurre = LeerVeces(l);
        tipo.tabla = true;
    }
    for (;;) {
        if (l.Toma("WITH"_c, "HEADER"_c)) {
            l.Exige("LINE"_c, "LINE");
            conCabecera = true;
        } else if (l.Toma("WITH"_c)) {
            l.Toma("NON-UNIQUE"_c);
            l.Exige("DEFAULT"_c, "DEFAULT KEY");
            l.Exige("KEY"_c, "KEY");
        } else if (l.Toma("INITIAL"_c, "SIZE"_c)) {
            tipo.ocurre = LeerVeces(l);
        } else {
            break;
        }
    }
    if (tipo.tabla && tipo.tipo.tipo == Tipo::Cadena) l.Fallar("internal tables of STRING are not known here");
    return tipo;
}

// ---- DATA, CONSTANTS, STATICS, TYPES ----

void Compilador::LeerDatos(Lectura& l) {
    const Clave sentencia = l.Primera().clave;
    if (l.Es("BEGIN"_c) && l.Es("OF"_c, 1)) return AbrirRegistro(l, sentencia);
    if (l.Es("END"_c) && l.Es("OF"_c, 1)) return CerrarRegistro(l, sentencia);
    const Palabra palabra = l.Tomada();
    if (palabra.EsLiteral()) throw FallaDeSentencia{palabra, "a name was expected"};
    LeerCuerpoDeDato(l, sentencia, palabra);
}

void Compilador::LeerCuerpoDeDato(Lectura& l, Clave sentencia, const Palabra& palabra) {
    const Declarado declarado = LeerDeclarado(palabra.texto);
    bool conCabecera = false;
    const TipoConNombre tipo = LeerTipoDeDato(l, declarado, conCabecera);
    std::optional<Operando> valor;
    const bool conValor = l.Toma("VALUE"_c);
    if (conValor) {
        if (l.Toma("IS"_c))
            l.Exige("INITIAL"_c, "INITIAL");
        else
            valor = LeerOperando(l);
    }
    l.Fin();
    if (valor && (!valor->constante || valor->trozo)) throw FallaDeSentencia{palabra, "VALUE wants a literal or a constant"};
    if (!conValor && sentencia == "CONSTANTS"_c) throw FallaDeSentencia{palabra, "a constant needs a VALUE"};
    if (!registros_.empty()) {
        auto& registro = registros_.back();
        if (tipo.tabla || tipo.tipo.tipo == Tipo::Cadena)
            throw FallaDeSentencia{palabra, "tables and STRINGs within a structure are not known here"};
        AgregarComponente(palabra, declarado.nombre, tipo.tipo);
        if (valor) registro.valores.push_back({registro.estructura->componentes.back().desplazamiento, tipo.tipo, *valor});
        return;
    }
    if (sentencia == "TYPES"_c) {
        (enForma_ ? tiposLocales_ : tipos_)[ClaveDe(declarado.nombre)] = tipo;
        return;
    }
    const bool global = !enForma_ || sentencia == "STATICS"_c;
    Nombrado& nombrado = Declarar(palabra, declarado.nombre);
    if (tipo.tabla) {
        nombrado.tabla = NuevaTabla(tipo.tipo, nombrado.nombre, conCabecera, global);
        nombrado.tabla->ocurre = tipo.ocurre;
        nombrado.campo = nombrado.tabla->cabecera;
        return;
    }
    nombrado.campo = NuevoCampo(tipo.tipo, global);
    if (valor) PonerValorInicial(*nombrado.campo, *valor);
    if (sentencia == "CONSTANTS"_c)
        nombrado.campo->constante = nombrado.campo->campo.soloLectura = true;
    else if (!enForma_ && tipo.tipo.tipo != Tipo::Estructura)
        programa_->variables.push_back({nombrado.nombre, *nombrado.campo, false});
}

void Compilador::AgregarComponente(const Palabra& palabra, std::string_view nombre, const TipoDeCampo& tipo) {
    Estructura& estructura = *registros_.back().estructura;
    std::string enMayusculas = Mayusculas(nombre);
    const bool palabraDeRegistro = enMayusculas == "BEGIN" || enMayusculas == "END" || enMayusculas == "INCLUDE";
    if (palabraDeRegistro || !EsNombreDeDato(enMayusculas))
        throw FallaDeSentencia{palabra, enMayusculas + " can't be the name of a component"};
    if (estructura.Buscar(enMayusculas) != nullptr)
        throw FallaDeSentencia{palabra, "the structure has a component " + enMayusculas + " already"};
    estructura.Agregar(std::move(enMayusculas), tipo);
}

void Compilador::AbrirRegistro(Lectura& l, Clave sentencia) {
    l.Avanzar(2);
    if (l.Es("COMMON"_c)) l.NoSePractica();
    RegistroAbierto registro;
    registro.palabra = l.Tomada();
    registro.sentencia = sentencia;
    registro.nombre = Mayusculas(registro.palabra.texto);
    if (l.Toma("OCCURS"_c)) {
        registro.ocurre = LeerVeces(l);
        registro.tabla = true;
        if (!registros_.empty()) l.Fallar("a table within a structure is not known here");
    }
    l.Fin();
    registro.estructura = &NuevaEstructura(registro.nombre);
    registros_.push_back(std::move(registro));
}

void Compilador::CerrarRegistro(Lectura& l, Clave sentencia) {
    l.Avanzar(2);
    const Palabra& palabra = l.Tomada();
    l.Fin();
    if (registros_.empty()) throw FallaDeSentencia{palabra, "END OF without BEGIN OF"};
    const RegistroAbierto registro = std::move(registros_.back());
    registros_.pop_back();
    if (registro.sentencia != sentencia || !IgualesSinCaja(palabra.texto, registro.nombre)) {
        throw FallaDeSentencia{palabra, "END OF " + registro.nombre + " was expected"};
    }
    if (registro.estructura->componentes.empty()) throw FallaDeSentencia{palabra, "the structure has no components"};
    registro.estructura->Cerrar();
    const TipoDeCampo tipo{Tipo::Estructura, registro.estructura->largo, 0, registro.estructura};
    if (!registros_.empty()) {
        AgregarComponente(registro.palabra, registro.nombre, tipo);
        const std::uint32_t lugar = registros_.back().estructura->componentes.back().desplazamiento;
        for (auto valor : registro.valores) {
            valor.lugar += lugar;
            registros_.back().valores.push_back(std::move(valor));
        }
        return;
    }
    if (sentencia == "TYPES"_c) {
        (enForma_ ? tiposLocales_ : tipos_)[ClaveDe(registro.nombre)] = {tipo, registro.tabla};
        return;
    }
    const bool global = !enForma_ || sentencia == "STATICS"_c;
    Nombrado& nombrado = Declarar(registro.palabra, registro.nombre);
    if (registro.tabla) {
        nombrado.tabla = NuevaTabla(tipo, nombrado.nombre, true, global);
        nombrado.tabla->ocurre = registro.ocurre;
    }
    nombrado.campo = registro.tabla ? nombrado.tabla->cabecera : NuevoCampo(tipo, global);
    for (const auto& valor : registro.valores) {
        const Componente componente{{}, valor.lugar, valor.tipo, false};
        PonerValorInicial(ComponenteDe(*nombrado.campo, componente), valor.valor);
    }
    if (sentencia == "CONSTANTS"_c) nombrado.campo->constante = nombrado.campo->campo.soloLectura = true;
}

void Compilador::LeerINCLUDE(Lectura& l) {
    const bool deTipo = l.Es("TYPE"_c);
    if (!deTipo && !l.Es("STRUCTURE"_c)) l.NoSePractica();
    l.Avanzar();
    const Palabra palabra = l.Actual();
    TipoConNombre tipo = LeerTipo(l, !deTipo);
    l.Fin();
    if (registros_.empty()) throw FallaDeSentencia{palabra, "INCLUDE STRUCTURE stands outside of BEGIN OF and END OF"};
    if (tipo.tipo.estructura == nullptr) throw FallaDeSentencia{palabra, std::string(palabra.texto) + " is no structure"};
    for (const auto& componente : tipo.tipo.estructura->componentes) AgregarComponente(palabra, componente.nombre, componente.tipo);
}

void Compilador::LeerTABLES(Lectura& l) {
    const Palabra palabra = l.Tomada();
    l.Fin();
    if (BuscarNombre(palabra.clave) != nullptr) return Faltar(palabra, std::string(palabra.texto) + " is declared twice");
    const Estructura& estructura = BuscarEnDiccionario(palabra.texto);
    Nombrado& nombrado = globales_[palabra.clave];
    nombrado.nombre = Mayusculas(palabra.texto);
    nombrado.campo = NuevoCampo({Tipo::Estructura, estructura.largo, 0, &estructura}, true);
}

void Compilador::LeerFIELD_SYMBOLS(Lectura& l) {
    const Palabra palabra = l.Tomada();
    if (!EsSimboloDeCampo(palabra.texto) || palabra.texto.back() != '>')
        throw FallaDeSentencia{palabra, "a name in angle brackets was expected"};
    TipoConNombre tipo{{Tipo::C, 0}};
    bool conTipo = false;
    if (l.EsAlguna({"TYPE"_c, "LIKE"_c, "STRUCTURE"_c})) {
        const bool como = l.Tomada().clave != "TYPE"_c;
        if (l.Toma("LINE"_c, "OF"_c)) {
            tipo = LeerTipo(l, como);
            tipo.tabla = false;
            conTipo = true;
        } else if (!l.Toma("ANY"_c)) {
            tipo = LeerTipo(l, como);
            conTipo = true;
        }
        if (tipo.tabla) l.Fallar("field-symbols of tables are not known here");
    }
    std::optional<Operando> inicial;
    if (l.Toma("DEFAULT"_c)) inicial = LeerCampo(l);
    l.Fin();
    Nombrado& nombrado = Declarar(palabra, palabra.texto);
    nombrado.simbolo = true;
    Operando operando;
    operando.base = enForma_ ? Base::EnlaceLocal : Base::EnlaceGlobal;
    operando.casilla = (enForma_ ? rutina_->marco : programa_->global).enlaces++;
    operando.dinamico = true;
    if (conTipo && tipo.tipo.estructura != nullptr) {
        operando.dinamico = false;
        operando.campo.tipo = Tipo::Estructura;
        operando.campo.largo = tipo.tipo.largo;
        operando.estructura = tipo.tipo.estructura;
    }
    nombrado.campo = operando;
    if (inicial) AsignarSimbolo(operando, *inicial);
}

}  // namespace qor::abap
