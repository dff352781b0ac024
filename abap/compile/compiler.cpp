#include "abap/compile/compiler.h"

#include <algorithm>

#include "abap/check/check.h"
#include "abap/check/fault_text.h"
#include "abap/keywords.h"
#include "base/text.h"

namespace qor::abap {

namespace {

constexpr int honduraDeMacros = 20;

// NAME or PREFIX_NAME, where the prefix of the naming conventions has one to three letters.
bool EsConPrefijo(std::string_view nombre, std::string_view suyo) {
    if (!nombre.ends_with(suyo)) return false;
    const auto prefijo = nombre.substr(0, nombre.size() - suyo.size());
    return prefijo.empty() || (prefijo.size() >= 2 && prefijo.size() <= 4 && prefijo.back() == '_');
}

// Statements that begin what another one has to end.
bool AbreBloque(Clave palabra) {
    switch (palabra) {
        case "IF"_c:
        case "CASE"_c:
        case "DO"_c:
        case "WHILE"_c:
        case "LOOP"_c:
        case "SELECT"_c:
        case "AT"_c: return true;
        default: return false;
    }
}

}  // namespace

Compilador::Compilador(std::string_view reporte, Diccionario& diccionario)
    : reporte_(reporte), diccionario_(diccionario), programa_(std::make_shared<Programa>()), usados_(reporte) {
    const Estructura& sy = EstructuraSY();
    Nombrado sistema;
    sistema.nombre = "SY";
    sistema.campo = NuevoCampo({Tipo::Estructura, sy.largo, 0, &sy}, true);
    globales_["SY"_c] = sistema;
    globales_["SYST"_c] = sistema;
    Nombrado espacio;
    espacio.nombre = "SPACE";
    espacio.campo = Espacio();
    globales_["SPACE"_c] = espacio;
}

bool Compilador::EsTablaPrincipal(std::string_view nombre) const { return EsConPrefijo(Mayusculas(nombre), "ITAB"); }

void Compilador::Faltar(const Palabra& palabra, std::string texto) {
    const bool enMacro = lineaDeMacro_ != 0;
    faltas_.push_back({enMacro ? lineaDeMacro_ : palabra.linea, enMacro ? 1 : palabra.columna, std::move(texto)});
}

void Compilador::Emitir(std::unique_ptr<Instruccion> instruccion) {
    Rutina& rutina = Actual();
    if (!bloques_.empty() && bloques_.back().caso && !bloques_.back().conRama) {
        throw FallaDeSentencia{palabraDeSentencia_, "nothing can stand between CASE and its first WHEN"};
    }
    instruccion->linea = lineaDeSentencia_;
    instruccion->primera = std::exchange(empiezaSentencia_, false);
    rutina.codigo.push_back(std::move(instruccion));
}

Compilacion Compilador::Compilar() {
    EmpezarEvento(programa_->inicio, "START-OF-SELECTION");
    LeerTodo(reporte_);
    TerminarRutina();
    for (const auto& registro : registros_) Faltar(registro.palabra, "BEGIN OF " + registro.nombre + " is not ended");
    RevisarLlamadas();
    MarcarBotones();
    Revisar();
    Compilacion compilacion;
    compilacion.faltas = TomarFaltas();
    if (compilacion.faltas.empty()) compilacion.programa = programa_;
    return compilacion;
}

void Compilador::LeerTodo(std::string_view texto) {
    LectorDeSentencias lector(texto, *this);
    LectorDeSentencias* antes = lector_;
    lector_ = &lector;
    Sentencia sentencia;
    while (lector.Siguiente(sentencia)) {
        if (sentencia.palabras.empty()) continue;
        const std::size_t bloques = bloques_.size();
        const std::size_t llamadas = llamadas_.size();
        try {
            Leer(sentencia);
        } catch (const Volcado& volcado) {
            Faltar(palabraDeSentencia_, volcado.what());  // a literal that can't be moved into its type
        } catch (const FallaDeSentencia& falla) {
            Faltar(falla.palabra, falla.texto);
            llamadas_.resize(llamadas);
            if (bloques_.size() == bloques && AbreBloque(sentencia.palabras.front().clave)) sinBloques_ = true;
        }
    }
    lector_ = antes;
}

void Compilador::Leer(const Sentencia& sentencia) {
    if (sentencia.estado == Sentencia::Estado::LiteralAbierto)
        throw FallaDeSentencia{*sentencia.donde, "the literal is not closed"};
    if (sentencia.estado == Sentencia::Estado::SinPunto)
        throw FallaDeSentencia{*sentencia.primera, "the statement has no point at its end"};
    if (sentencia.comaSuelta != nullptr) throw FallaDeSentencia{*sentencia.comaSuelta, "a comma without a colon in front"};
    palabraDeSentencia_ = *sentencia.primera;
    lineaDeSentencia_ = lineaDeMacro_ != 0 ? lineaDeMacro_ : sentencia.primera->linea;
    empiezaSentencia_ = true;
    Lectura l(sentencia.palabras);
    if (EsMacro(l.Primera().clave)) return LlamarMacro(sentencia);
    if (l.Es("="_c, 1)) {
        if (!registros_.empty()) throw FallaDeSentencia{l.Primera(), "END OF " + registros_.back().nombre + " was expected"};
        return LeerAsignacion(l);
    }
    l.Avanzar();
    LeerPorPalabra(l);
}

void Compilador::LeerPorPalabra(Lectura& l) {
    const Palabra& primera = l.Primera();
    switch (primera.clave) {
        case "DATA"_c:
        case "CONSTANTS"_c:
        case "STATICS"_c:
        case "TYPES"_c: return LeerDatos(l);
        case "INCLUDE"_c: return LeerINCLUDE(l);
        default: break;
    }
    if (!registros_.empty()) {
        const std::string nombre = registros_.back().nombre;
        registros_.clear();
        throw FallaDeSentencia{primera, "END OF " + nombre + " was expected"};
    }
    switch (primera.clave) {
        case "REPORT"_c:
        case "PROGRAM"_c: return LeerREPORT(l);
        case "TABLES"_c: return LeerTABLES(l);
        case "RANGES"_c: return LeerRANGES(l);
        case "FIELD-SYMBOLS"_c: return LeerFIELD_SYMBOLS(l);
        case "PARAMETERS"_c:
        case "PARAMETER"_c: return LeerPARAMETERS(l);
        case "SELECT-OPTIONS"_c: return LeerSELECT_OPTIONS(l);
        case "SELECTION-SCREEN"_c: return;  // how the screen looks
        case "DEFINE"_c: return LeerDEFINE(l);
        case "END-OF-DEFINITION"_c:
        case "ENDEXEC"_c: return l.Fin();
        case "LOAD-OF-PROGRAM"_c:
        case "INITIALIZATION"_c: l.Fin(); return EmpezarEvento(programa_->inicializacion, "INITIALIZATION");
        case "START-OF-SELECTION"_c: l.Fin(); return EmpezarEvento(programa_->inicio, "START-OF-SELECTION");
        case "END-OF-SELECTION"_c: l.Fin(); return EmpezarEvento(programa_->fin, "END-OF-SELECTION");
        case "FORM"_c: return LeerFORM(l);
        case "ENDFORM"_c:
            l.Fin();
            if (!enForma_) throw FallaDeSentencia{primera, "ENDFORM without FORM"};
            TerminarRutina();
            rutina_ = nullptr;
            return;
        case "PERFORM"_c: return LeerPERFORM(l);
        case "LOCAL"_c: return LeerLOCAL(l);
        case "IF"_c: return LeerIF(l);
        case "ELSEIF"_c: return LeerELSEIF(l);
        case "ELSE"_c: return LeerELSE(l);
        case "CASE"_c: return LeerCASE(l);
        case "WHEN"_c: return LeerWHEN(l);
        case "DO"_c: return LeerDO(l);
        case "WHILE"_c: return LeerWHILE(l);
        case "ENDIF"_c:
        case "ENDCASE"_c:
        case "ENDDO"_c:
        case "ENDWHILE"_c:
        case "ENDLOOP"_c:
        case "ENDSELECT"_c:
        case "ENDAT"_c: l.Fin(); return CerrarBloque(primera);
        case "CHECK"_c: return LeerCHECK(l);
        case "EXIT"_c: return LeerEXIT(l);
        case "CONTINUE"_c: return LeerCONTINUE(l);
        case "STOP"_c: return LeerSTOP(l);
        case "LEAVE"_c: return LeerLEAVE(l);
        case "MOVE"_c: return LeerMOVE(l);
        case "COMPUTE"_c: return LeerAsignacion(l);
        case "ADD"_c: return LeerCuenta(l, '+', "TO"_c);
        case "SUBTRACT"_c: return LeerCuenta(l, '-', "FROM"_c);
        case "MULTIPLY"_c: return LeerCuenta(l, '*', "BY"_c);
        case "DIVIDE"_c: return LeerCuenta(l, '/', "BY"_c);
        case "MOVE-CORRESPONDING"_c: return LeerMOVE_CORRESPONDING(l);
        case "CLEAR"_c: return LeerCLEAR(l);
        case "ASSIGN"_c: return LeerASSIGN(l);
        case "UNASSIGN"_c: return LeerUNASSIGN(l);
        case "AT"_c:
            if (l.EsAlguna({"SELECTION-SCREEN"_c, "LINE-SELECTION"_c, "USER-COMMAND"_c})) return LeerAT(l);
            break;
        default: break;
    }
    if (LeerDeProgramas(*this, l) || LeerDeBase(*this, l) || LeerDeTablas(*this, l) || LeerDeTextos(*this, l) ||
        LeerDeListas(*this, l) || LeerDeArchivos(*this, l) || LeerDeLlamadas(*this, l)) {
        return;
    }
    throw FallaDeSentencia{
        primera, std::string(primera.texto) +
                     (EsPalabraDeSentencia(primera.clave) ? " is no statement that is known here" : " begins no statement")};
}

void Compilador::LeerREPORT(Lectura& l) {
    if (l.Hay()) programa_->nombre = Mayusculas(l.Tomada().texto);
    while (l.Hay()) {
        if (l.Toma("LINE-SIZE"_c)) {
            const int ancho = abap::ValorEntero(l.Tomada().texto);
            if (ancho > 0) programa_->anchoDeLista = std::min(ancho, programa_->anchoDeLista);
        } else if (l.Toma("MESSAGE-ID"_c)) {
            programa_->claseDeMensajes = Mayusculas(l.Tomada().texto);
        } else {
            l.Avanzar();  // headings: nothing that a run shows
        }
    }
}

// ---- Macros ----

void Compilador::LeerDEFINE(Lectura& l) {
    const Palabra nombre = l.Tomada();
    l.Fin();
    const TextoAjeno texto = TextoHasta("END-OF-DEFINITION");
    macros_[nombre.clave] = {std::string(texto.texto), texto.linea};
}

// The text of the macro with the words of the call in the places of &1 to &9.
void Compilador::LlamarMacro(const Sentencia& sentencia) {
    const Palabra nombre = sentencia.palabras.front();
    if (++honduraDeMacros_ > honduraDeMacros) throw FallaDeSentencia{nombre, "macros call one another without an end"};
    const std::string texto = macros_[nombre.clave].texto;
    std::string& expandido = textosDeMacros_.emplace_back();
    for (std::size_t i = 0; i < texto.size(); ++i) {
        const bool lugar = texto[i] == '&' && i + 1 < texto.size() && texto[i + 1] >= '1' && texto[i + 1] <= '9';
        if (!lugar) {
            expandido += texto[i];
            continue;
        }
        const auto numero = static_cast<std::size_t>(texto[++i] - '0');
        if (numero < sentencia.palabras.size()) expandido += sentencia.palabras[numero].texto;
    }
    const int antes = lineaDeMacro_;
    if (lineaDeMacro_ == 0) lineaDeMacro_ = sentencia.primera->linea;
    LeerTodo(expandido);
    lineaDeMacro_ = antes;
    --honduraDeMacros_;
}

// ---- Faults ----

// What a check of the report as a text says: it knows faults that no statement has by itself.
void Compilador::Revisar() {
    std::string visible(reporte_);
    for (const auto& [parte, con] : ocultas_) {
        if (parte.data() < reporte_.data() || parte.data() >= reporte_.data() + reporte_.size()) continue;  // of a macro
        const auto desde = static_cast<std::size_t>(parte.data() - reporte_.data());
        for (std::size_t i = desde; i < desde + parte.size(); ++i) {
            if (visible[i] != '\r' && visible[i] != '\n') visible[i] = con;
        }
    }
    for (const auto& falta : RevisarReporte(visible)) {
        const int sentencia = falta.sentencia > 0 ? falta.sentencia : falta.linea;
        if (falta.clase == Falta::Clase::FormaSinDefinir) continue;  // a short dump of the call
        const auto igual = [&](const FaltaDePrograma& otra) { return otra.linea == falta.linea || otra.linea == sentencia; };
        if (std::none_of(faltas_.begin(), faltas_.end(), igual))
            faltas_.push_back({falta.linea, falta.columna, TextoDeFalta(falta)});
    }
}

std::vector<FaltaDePrograma> Compilador::TomarFaltas() {
    std::stable_sort(faltas_.begin(), faltas_.end(), [](const FaltaDePrograma& a, const FaltaDePrograma& b) {
        return std::pair(a.linea, a.columna) < std::pair(b.linea, b.columna);
    });
    return std::move(faltas_);
}

Compilacion Compilar(std::string_view reporte, Diccionario& diccionario) { return Compilador(reporte, diccionario).Compilar(); }

}  // namespace qor::abap
