#include "abap/machine/machine.h"

#include <algorithm>

#include "abap/machine/expression.h"
#include "abap/values/conversion.h"
#include "abap/values/field_part.h"

namespace qor::abap {

namespace {

constexpr int honduraMaxima = 2000;  // FORMs that call one another
constexpr std::int64_t sentenciasEntrePreguntas = 1 << 20;

// The bytes of every type that are one field to those who were given it as a whole.
std::uint32_t BytesDe(const Campo& campo) { return campo.tipo == Tipo::Cadena ? 0 : campo.largo; }

// A line of a SELECT-OPTIONS: one value, or all between two.
void PonerRango(TablaInterna& rango, const Campo& bajo, const Campo& alto) {
    const PartesDeRango partes(rango);
    std::uint8_t* fila = rango.Agregar();
    PonerTexto("I", partes.Signo(fila));
    PonerTexto(alto.datos == nullptr ? "EQ" : "BT", partes.Opcion(fila));
    Mover(bajo, partes.Bajo(fila));
    const Campo arriba = partes.Alto(fila);
    PonerInicial(arriba, nullptr);
    if (alto.datos != nullptr) Mover(alto, arriba);
}

[[noreturn]] void FaltarEnParametro(const ParametroFormal& formal) {
    throw Volcado("PERFORM_PARAMETER_TOO_SHORT",
                  "What is given for the parameter " + formal.nombre + " is shorter than its structure");
}

[[noreturn]] void FueraDelCampo(const char* nombre, const char* que) { throw Volcado(nombre, que); }

}  // namespace

Maquina::Maquina(std::shared_ptr<const Programa> programa, Entorno& entorno, std::int64_t limite)
    : programa_(std::move(programa)), entorno_(entorno), lista_(entorno.lista, programa_->anchoDeLista), limite_(limite) {
    PonerTramo();
    PrepararMarco(global_, programa_->global);
    libres_.resize(programa_->rutinas.size());
    const Estructura& sy = EstructuraSY();
    lugarSubrc_ = sy.Buscar("SUBRC")->desplazamiento;
    lugarTabix_ = sy.Buscar("TABIX")->desplazamiento;
    lugarFdpos_ = sy.Buscar("FDPOS")->desplazamiento;
    PonerSY("DATUM", entorno.momento.fecha);
    PonerSY("UZEIT", entorno.momento.hora);
    PonerSY("UNAME", entorno.usuario);
    PonerSY("MANDT", entorno.cliente);
    PonerSY("SYSID", entorno.sistema);
    PonerSY("SAPRL", "46C");
    PonerSY("LANGU", entorno.idioma);
    PonerSY("TCODE", "SE38");
    PonerSY("REPID", programa_->nombre);
    PonerSY("CPROG", programa_->nombre);
    for (const auto& [parametro, campo] : programa_->defectos) Mover(Resolver(campo), Resolver(parametro));
    for (const auto& parametro : programa_->parametros) {
        ParametroDePantalla suyo;
        suyo.nombre = parametro.nombre;
        suyo.campo = Resolver(parametro.operando);
        if (parametro.rango) suyo.rango = &Tabla(*parametro.rango);
        suyo.conMinusculas = parametro.conMinusculas;
        suyo.obligatorio = parametro.obligatorio;
        suyo.casilla = parametro.casilla;
        suyo.grupo = parametro.grupo;
        suyo.linea = parametro.linea;
        if (parametro.desde)
            PonerRango(*suyo.rango, Resolver(*parametro.desde), parametro.hasta ? Resolver(*parametro.hasta) : Campo{});
        parametros_.push_back(std::move(suyo));
    }
}

Maquina::~Maquina() = default;

// ---- System fields ----

Campo Maquina::CampoSY(std::string_view nombre) {
    const Componente* componente = EstructuraSY().Buscar(nombre);
    return CampoDeComponente(*componente, global_.datos.get());
}

void Maquina::PonerSY(std::string_view nombre, std::int64_t valor) { PonerEntero(valor, CampoSY(nombre)); }

void Maquina::PonerSY(std::string_view nombre, std::string_view valor) { PonerTexto(valor, CampoSY(nombre)); }

// ---- Frames ----

void Maquina::PrepararMarco(Marco& marco, const DisenoDeMarco& diseno) {
    if (!marco.datos) {
        marco.datos = std::make_unique<std::uint8_t[]>(std::max<std::size_t>(diseno.datos.size(), 1));
        marco.enlaces.resize(diseno.enlaces);
        marco.bucles.resize(diseno.bucles);
        for (std::size_t i = 0; i < diseno.tablas.size(); ++i) {
            marco.tablas.emplace_back(diseno.tablas[i]);
            if (diseno.vigiladas[i]) marco.tablas.back().Vigilar();
        }
    } else {
        for (auto& tabla : marco.tablas) tabla.Vaciar();
        std::fill(marco.enlaces.begin(), marco.enlaces.end(), Enlace{});
    }
    if (!diseno.datos.empty()) std::memcpy(marco.datos.get(), diseno.datos.data(), diseno.datos.size());
    marco.cadenas = diseno.cadenas;
}

std::unique_ptr<Marco> Maquina::TomarMarco(const Rutina& rutina) {
    auto& libres = libres_[rutina.numero];
    std::unique_ptr<Marco> marco;
    if (libres.empty()) {
        marco = std::make_unique<Marco>();
    } else {
        marco = std::move(libres.back());
        libres.pop_back();
    }
    PrepararMarco(*marco, rutina.marco);
    return marco;
}

void Maquina::EnlazarTabla(Marco& marco, const ParametroFormal& formal, const Argumento& argumento) {
    Enlace& enlace = marco.enlaces[formal.casilla];
    TablaInterna& tabla = Tabla(*argumento.tabla);
    if (formal.minimo > tabla.Linea().largo) FaltarEnParametro(formal);
    enlace.tabla = &tabla;
    enlace.estructura = tabla.Linea().estructura;
    enlace.asignado = true;
    if (argumento.tabla->cabecera) {
        enlace.campo = Resolver(*argumento.tabla->cabecera);
    } else {
        // A parameter of a FORM has a header line, whatever the table has.
        enlace.campo = Campo{};
        enlace.campo.datos = marco.copias.emplace_back(tabla.Linea().largo).data();
        enlace.campo.largo = tabla.Linea().largo;
        enlace.campo.tipo = tabla.Linea().tipo;
        enlace.campo.decimales = tabla.Linea().decimales;
        PonerInicial(enlace.campo, enlace.estructura);
    }
}

void Maquina::EnlazarCampo(Marco& marco, const ParametroFormal& formal, const Argumento& argumento) {
    Enlace& enlace = marco.enlaces[formal.casilla];
    enlace.asignado = true;
    if (argumento.tabla && !argumento.operando) {
        enlace.tabla = &Tabla(*argumento.tabla);
        enlace.estructura = enlace.tabla->Linea().estructura;
        if (formal.minimo > 0) FaltarEnParametro(formal);  // the table has no header line that could be the structure
        return;
    }
    enlace.campo = Resolver(*argumento.operando);
    enlace.estructura = EstructuraDe(*argumento.operando);
    if (formal.minimo > BytesDe(enlace.campo)) FaltarEnParametro(formal);
    // A part of a STRING is given as it is now: the STRING may move its bytes.
    if (!formal.porValor && !EsParteDeCadena(*argumento.operando)) return;
    Campo copia = enlace.campo;
    copia.soloLectura = !formal.porValor;
    if (copia.tipo == Tipo::Cadena) {
        copia.cadena = marco.copiasDeCadenas.emplace_back(std::make_unique<std::string>(*enlace.campo.cadena)).get();
    } else {
        copia.datos = marco.copias.emplace_back(copia.datos, copia.datos + copia.largo).data();
    }
    enlace.campo = copia;
}

void Maquina::Enlazar(Marco& marco, const Rutina& rutina, std::span<const Argumento> argumentos) {
    for (std::size_t i = 0; i < argumentos.size(); ++i) {
        const auto& formal = rutina.formales[i];
        if (formal.tabla)
            EnlazarTabla(marco, formal, argumentos[i]);
        else
            EnlazarCampo(marco, formal, argumentos[i]);
    }
}

// LOCAL: what global fields hold when a FORM begins, and get back behind it.
void Maquina::GuardarGlobales(const Rutina& rutina, Marco& marco) {
    for (const auto& global : rutina.guardados) {
        const Campo campo = Resolver(global);
        marco.copias.emplace_back(campo.datos, campo.datos + BytesDe(campo));
    }
}

void Maquina::DevolverGlobales(const Rutina& rutina, Marco& marco) {
    for (std::size_t i = 0; i < std::min(rutina.guardados.size(), marco.copias.size()); ++i) {
        const Campo campo = Resolver(rutina.guardados[i]);
        std::memcpy(campo.datos, marco.copias[i].data(), BytesDe(campo));
    }
}

// Global field-symbols that stand for data objects of a FORM stand for nothing behind it.
void Maquina::SoltarSimbolos(const Rutina& rutina, const Marco& marco) {
    const auto esta = [](const std::uint8_t* donde, const std::uint8_t* bytes, std::size_t cuantos) {
        return donde >= bytes && donde < bytes + cuantos;
    };
    for (auto& enlace : global_.enlaces) {
        if (!enlace.asignado) continue;
        bool suya = false;
        if (enlace.campo.tipo == Tipo::Cadena) {
            const auto es = [&](const std::string& cadena) { return &cadena == enlace.campo.cadena; };
            suya = std::any_of(marco.cadenas.begin(), marco.cadenas.end(), es) ||
                   std::any_of(marco.copiasDeCadenas.begin(), marco.copiasDeCadenas.end(),
                               [&](const auto& copia) { return es(*copia); });
        } else {
            suya = esta(enlace.campo.datos, marco.datos.get(), rutina.marco.datos.size()) ||
                   std::any_of(marco.copias.begin(), marco.copias.end(),
                               [&](const auto& copia) { return esta(enlace.campo.datos, copia.data(), copia.size()); });
        }
        if (suya) enlace = {};
    }
}

// ---- Running ----

bool Maquina::EmpezarRegistro(std::size_t numero, std::size_t todos) {
    registros_ = todos;
    if (entorno_.seguimiento.Detener()) throw SaltoDeReporte{SaltoDeReporte::Adonde::Detenido};
    Progreso();
    enRegistro_ = true;
    return entorno_.seguimiento.Registro(numero);
}

void Maquina::TerminarRegistros() {
    enRegistro_ = false;
    entorno_.seguimiento.FinDeRegistros();
}

// Statements are counted in stretches: so many that the limit is met exactly, and so few that who wants to end the run is heard,
// also in a loop that shows progress without an end.
void Maquina::PonerTramo() {
    tramo_ = std::min(sentenciasEntrePreguntas, limite_ - gastadas_);
    cuenta_ = tramo_;
}

// Between two stretches.
void Maquina::Atender() {
    gastadas_ += tramo_;
    if (gastadas_ >= limite_) throw Volcado("TIME_OUT", "Too many statements without a record or another sign of progress");
    PonerTramo();
    if (entorno_.seguimiento.Detener()) throw SaltoDeReporte{SaltoDeReporte::Adonde::Detenido};
}

template <bool conPerfil>
void Maquina::Recorrer(const Rutina& rutina) {
    const auto& codigo = rutina.codigo;
    const std::size_t fin = codigo.size();
    for (std::size_t i = 0; i < fin;) {
        const Instruccion& instruccion = *codigo[i];
        actual_ = &instruccion;
        if (--cuenta_ <= 0) Atender();
        if constexpr (conPerfil) {
            if (instruccion.primera) perfil_->Sentencia(instruccion.linea);
        }
        i = instruccion.Ejecutar(*this, i + 1);
    }
}

void Maquina::Ejecutar(const Rutina& rutina, Marco& marco) {
    struct Vuelta {
        Maquina& maquina;
        Marco* antes;
        ~Vuelta() {
            maquina.marco_ = antes;
            --maquina.hondura_;
        }
    };
    if (hondura_ >= honduraMaxima) throw Volcado("STORAGE_PARAMETERS_WRONG_SET", "Too many FORMs call one another");
    const Vuelta vuelta{*this, marco_};
    ++hondura_;
    marco_ = &marco;
    if (perfil_ != nullptr)
        Recorrer<true>(rutina);
    else
        Recorrer<false>(rutina);
}

void Maquina::Llamar(const Rutina& rutina, std::span<const Argumento> argumentos) {
    if (rutina.linea == 0) throw Volcado("PERFORM_NOT_FOUND", "There is no FORM " + rutina.nombre);
    // However the FORM is left, global fields get back what LOCAL kept of them, and the frame can be used again.
    struct Salida {
        Maquina& maquina;
        const Rutina& rutina;
        std::unique_ptr<Marco> marco;
        ~Salida() {
            maquina.DevolverGlobales(rutina, *marco);
            maquina.SoltarSimbolos(rutina, *marco);
            marco->copias.clear();
            marco->copiasDeCadenas.clear();
            maquina.libres_[rutina.numero].push_back(std::move(marco));
        }
    };
    const Salida salida{*this, rutina, TomarMarco(rutina)};
    Marco* const marco = salida.marco.get();
    GuardarGlobales(rutina, *marco);
    Enlazar(*marco, rutina, argumentos);
    const Instruccion* llamada = actual_;
    Ejecutar(rutina, *marco);
    actual_ = llamada;
    if (perfil_ != nullptr) perfil_->Vuelta({rutina, *marco, Linea()});
    for (std::size_t i = 0; i < argumentos.size(); ++i) {
        const auto& formal = rutina.formales[i];
        if (formal.devuelve && argumentos[i].operando)
            Mover(marco->enlaces[formal.casilla].campo, Destino(*argumentos[i].operando));
    }
}

void Maquina::Iniciar() {
    if (programa_->inicializacion == nullptr) return;
    try {
        Ejecutar(*programa_->inicializacion, global_);
    } catch (const SaltoDeReporte&) {
        // INITIALIZATION can't end the report: the selection screen comes next.
    }
}

FinDeReporte Maquina::Correr() {
    using Adonde = SaltoDeReporte::Adonde;
    struct Vaciado {
        Lista& lista;
        ~Vaciado() { lista.Terminar(); }
    } const vaciado{lista_};
    try {
        for (const Rutina* pantalla : programa_->pantallas) Ejecutar(*pantalla, global_);
        if (programa_->inicio != nullptr) {
            try {
                Ejecutar(*programa_->inicio, global_);
            } catch (const SaltoDeReporte& salto) {
                if (salto.adonde != Adonde::FinDeSeleccion) throw;
                if (enRegistro_) TerminarRegistros();
            }
        }
        if (programa_->fin != nullptr) Ejecutar(*programa_->fin, global_);
    } catch (const SaltoDeReporte& salto) {
        if (salto.adonde == Adonde::Mensaje) return FinDeReporte::Mensaje;
        if (salto.adonde == Adonde::Abandono) return FinDeReporte::Abandonado;
        if (salto.adonde == Adonde::Detenido) return FinDeReporte::Detenido;
    }
    return FinDeReporte::Normal;
}

// ---- Operands ----

Campo Maquina::ResolverTrozo(const Campo& campo, const TrozoVariable& trozo) {
    const auto texto = campo.Texto();
    const auto todo = static_cast<std::int64_t>(texto.size());
    const std::int64_t desde = trozo.desplazamiento ? Entero(*trozo.desplazamiento) : trozo.desplazamientoFijo;
    const bool cadena = campo.tipo == Tipo::Cadena;
    if (desde < 0) FueraDelCampo("DATA_OFFSET_NEGATIVE", "The offset of a sub-field is negative");
    if (desde > todo || (desde == todo && !cadena)) FueraDelCampo("STRING_OFFSET_TOO_LARGE", "The offset leads out of the field");
    std::int64_t largo = todo - desde;
    if (trozo.largo || trozo.largoFijo) {
        largo = trozo.largo ? Entero(*trozo.largo) : *trozo.largoFijo;
        if (largo < 0) FueraDelCampo("DATA_LENGTH_NEGATIVE", "The length of a sub-field is negative");
        if (largo == 0 && !cadena) FueraDelCampo("DATA_LENGTH_0", "The length of a sub-field is zero");
        if (largo > todo) FueraDelCampo("DATA_LENGTH_TOO_LARGE", "The length leads out of the field");
        if (desde + largo > todo) FueraDelCampo("STRING_OFFSET_LENGTH_TOO_LARGE", "Offset and length lead out of the field");
    }
    Campo parte;
    parte.datos = cadena ? reinterpret_cast<std::uint8_t*>(campo.cadena->data()) + desde : campo.datos + desde;
    parte.largo = static_cast<std::uint32_t>(largo);
    parte.tipo = TipoDeParte(campo.tipo);
    parte.soloLectura = campo.soloLectura || cadena;
    return parte;
}

bool Maquina::EsParteDeCadena(const Operando& operando) {
    if (!operando.trozo) return false;
    Operando todo = operando;
    todo.trozo = nullptr;
    return Resolver(todo).tipo == Tipo::Cadena;
}

const Estructura* Maquina::EstructuraDe(const Operando& operando) {
    if (operando.trozo) return nullptr;
    return operando.dinamico ? Seguir(operando).estructura : operando.estructura;
}

TablaInterna& Maquina::Tabla(const OperandoDeTabla& operando) {
    switch (operando.base) {
        case Base::Global: return global_.tablas[operando.casilla];
        case Base::Local: return marco_->tablas[operando.casilla];
        default: break;
    }
    Marco& marco = operando.base == Base::EnlaceGlobal ? global_ : *marco_;
    TablaInterna* tabla = marco.enlaces[operando.casilla].tabla;
    if (tabla == nullptr) throw Volcado("TABLE_ILLEGAL_STATEMENT", "What was given for an internal table is none");
    return *tabla;
}

Campo Maquina::Cabecera(const OperandoDeTabla& operando) {
    if (!operando.cabecera) throw Volcado("TABLE_ILLEGAL_STATEMENT", "The internal table has no header line");
    return Resolver(*operando.cabecera);
}

Enlace& Maquina::EnlaceDe(const Operando& operando) {
    return (operando.base == Base::EnlaceGlobal ? global_ : *marco_).enlaces[operando.casilla];
}

std::int64_t Maquina::Entero(const Operando& operando) {
    const Campo campo = Resolver(operando);
    if (campo.tipo == Tipo::I) return Leer32(campo.datos);
    std::int32_t valor = 0;
    Campo destino;
    destino.datos = reinterpret_cast<std::uint8_t*>(&valor);
    destino.largo = sizeof valor;
    destino.tipo = Tipo::I;
    Mover(campo, destino);
    return valor;
}

// ---- The run as others see it ----

Ejecucion::Ejecucion(std::shared_ptr<const Programa> programa, Entorno& entorno, std::int64_t limite)
    : maquina_(std::make_unique<Maquina>(std::move(programa), entorno, limite)) {}
Ejecucion::~Ejecucion() = default;

std::string_view FormaTerminada::Nombre() const { return rutina_.nombre; }

Campo FormaTerminada::Parametro(std::size_t i) const {
    return i < rutina_.formales.size() ? marco_.enlaces[rutina_.formales[i].casilla].campo : Campo{};
}

void Ejecucion::PonerPerfil(Perfil* perfil) { maquina_->PonerPerfil(perfil); }
std::size_t Ejecucion::FilasPrincipales() const { return maquina_->Registros(); }
void Ejecucion::Iniciar() { maquina_->Iniciar(); }
std::vector<ParametroDePantalla>& Ejecucion::Parametros() { return maquina_->Parametros(); }
FinDeReporte Ejecucion::Correr() { return maquina_->Correr(); }
void Ejecucion::Progreso() { maquina_->Progreso(); }
int Ejecucion::Linea() const { return maquina_->Linea(); }

Campo Ejecucion::BuscarVariable(std::string_view nombre) {
    for (const auto& variable : maquina_->Suyo().variables) {
        if (variable.nombre == nombre) return maquina_->Resolver(variable.operando);
    }
    return {};
}

std::vector<std::string> Ejecucion::Variables() {
    std::vector<std::string> nombres;
    for (const auto& variable : maquina_->Suyo().variables) {
        if (!variable.parametro) nombres.push_back(variable.nombre);
    }
    return nombres;
}

std::vector<std::pair<std::string, const TablaInterna*>> Ejecucion::TablasDeGrupos() {
    std::vector<std::pair<std::string, const TablaInterna*>> tablas;
    for (const auto& grupo : maquina_->Suyo().grupos) tablas.emplace_back(grupo.nombre, &maquina_->Global().tablas[grupo.tabla]);
    return tablas;
}

}  // namespace qor::abap
