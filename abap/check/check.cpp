#include "abap/check/check.h"

#include "abap/check/native_sql.h"
#include "abap/check/rules.h"
#include "abap/keywords.h"
#include "abap/statements.h"

namespace qor::abap {

namespace {

using Clase = Falta::Clase;

class Revisor : public Conocidos {
public:
    explicit Revisor(std::string_view reporte) : reporte_(reporte), lector_(reporte, *this) {}

    std::vector<Falta> Revisar() {
        Sentencia sentencia;
        while (lector_.Siguiente(sentencia)) Examinar(sentencia);
        contexto_.informe.EmpezarSentencia(0, false);
        contexto_.bloques.CerrarTodos();
        CerrarRegistros(contexto_);
        RevisarLlamadas(contexto_);
        return contexto_.informe.Tomar();
    }

    bool EsMacro(Clave palabra) const override { return contexto_.macros.contains(palabra); }
    bool EsDato(Clave nombre) const override { return contexto_.datos.Buscar(nombre) != nullptr; }

private:
    void Examinar(const Sentencia& s);
    void DecirEstado(const Sentencia& s);
    void DecirFallo(const Sentencia& s, const Frase::Fallo& fallo);
    bool Leer(Frase& f);
    bool LeerSegunPalabra(Frase& f);
    bool LeerEvento(Frase& f);
    bool LeerBloque(Frase& f);
    bool LeerOtra(Frase& f);
    bool PasarOtra(Frase& f);
    bool LeerEXEC(Frase& f);
    bool LeerDEFINE(Frase& f);
    void NuevoTramo();
    void Perder(const Sentencia& s);

    std::string_view reporte_;
    Contexto contexto_;
    LectorDeSentencias lector_;
    bool enClase_ = false;
};

// The words of a statement that could not be read may have declared anything.
void Revisor::Perder(const Sentencia& s) {
    for (const auto& palabra : s.palabras) {
        if (palabra.tipo != Palabra::Tipo::Nombre) continue;
        contexto_.perdidas.insert(palabra.clave);
        contexto_.perdidas.insert(palabra.base);
    }
    contexto_.informe.PerderBloques();
}

void Revisor::DecirEstado(const Sentencia& s) {
    auto& informe = contexto_.informe;
    informe.Callar(false);
    if (s.estado == Sentencia::Estado::LiteralAbierto) {
        informe.Agregar(Clase::LiteralAbierto, *s.donde);
    } else if (s.palabras.back().clave == "WHERE"_c) {
        informe.Agregar(Clase::OperandoAusente, s.palabras.back());
    } else {
        informe.Agregar(Clase::SentenciaSinPunto, *s.primera, s.donde != nullptr ? s.donde->texto : s.primera->texto);
    }
    Perder(s);
}

void Revisor::DecirFallo(const Sentencia& s, const Frase::Fallo& fallo) {
    const bool sobra = fallo.clase == Clase::PalabrasDeMas || fallo.clase == Clase::NoEsSentencia;
    if (sobra && lector_.Cortar(fallo.palabra)) {
        contexto_.informe.AgregarDeForma(Clase::SentenciaSinPunto, *s.primera, fallo.palabra.texto);
        contexto_.informe.PerderBloques();
    } else {
        contexto_.informe.AgregarDeForma(fallo.clase, fallo.palabra, fallo.palabra.texto);
    }
}

void Revisor::Examinar(const Sentencia& s) {
    if (s.estado == Sentencia::Estado::Perdida) return Perder(s);
    auto& informe = contexto_.informe;
    const bool entera = s.estado == Sentencia::Estado::Entera;
    informe.EmpezarSentencia(s.primera->linea, !entera);
    const std::size_t antes = informe.Cantidad();
    Frase frase(s.palabras, contexto_);
    Leer(frase);
    if (!entera) {
        DecirEstado(s);
    } else if (const auto& fallo = frase.Fallada()) {
        DecirFallo(s, *fallo);
    } else if (s.comaSuelta != nullptr && informe.Cantidad() == antes) {
        informe.Agregar(Clase::NoEsSentencia, *s.comaSuelta);
    }
}

bool Revisor::Leer(Frase& f) {
    const Palabra& primera = f.Primera();
    if (enClase_) {
        enClase_ = primera.clave != "ENDCLASS"_c && primera.clave != "ENDINTERFACE"_c;
        return true;
    }
    if (primera.EsLiteral()) return f.Falla(Clase::NoEsSentencia, primera);
    if (f.Es("="_c, 1) || f.Es("?="_c, 1)) {
        CerrarRegistros(contexto_);
        return LeerAsignacion(f);
    }
    if (EsMacro(primera.clave)) {
        contexto_.incierto = true;
        contexto_.informe.PerderBloques();
        return true;
    }
    if (!EsPalabraDeSentencia(primera.clave)) {
        const bool llamada = EsDeObjeto(primera.texto);
        return llamada || f.Falla(Clase::NoEsSentencia, primera);
    }
    f.Avanzar();
    return LeerSegunPalabra(f);
}

bool Revisor::LeerSegunPalabra(Frase& f) {
    switch (f.Primera().clave) {
        case "DATA"_c:
        case "CONSTANTS"_c:
        case "STATICS"_c:
        case "TYPES"_c: return LeerDatos(f);
        case "INCLUDE"_c: return LeerINCLUDE(f);
        default: break;
    }
    CerrarRegistros(contexto_);
    switch (f.Primera().clave) {
        case "TABLES"_c: return LeerTABLES(f);
        case "PARAMETERS"_c:
        case "PARAMETER"_c: return LeerPARAMETERS(f);
        case "SELECT-OPTIONS"_c: return LeerSELECT_OPTIONS(f);
        case "RANGES"_c: return LeerRANGES(f);
        case "SELECTION-SCREEN"_c: return LeerPantalla(f);
        case "PERFORM"_c: return LeerPERFORM(f);
        case "CALL"_c: return LeerCALL(f);
        case "COMPUTE"_c: return LeerCOMPUTE(f);
        case "MOVE"_c: return LeerMOVE(f);
        case "MOVE-CORRESPONDING"_c:
            if (f.Es("EXACT"_c) && f.Hay(3)) return f.Resto();
            return f.Variable() && f.Exige("TO"_c) && f.Destino() &&
                   (!f.Hay() || f.Es("EXPANDING"_c) || f.Es("KEEPING"_c) || f.Fin());
        case "CLEAR"_c: return LeerCLEAR(f);
        case "FREE"_c: return LeerFREE(f);
        case "WRITE"_c: return LeerWRITE(f);
        case "CONCATENATE"_c: return LeerCONCATENATE(f);
        case "SPLIT"_c: return LeerSPLIT(f);
        case "SHIFT"_c: return LeerSHIFT(f);
        case "TRANSLATE"_c: return LeerTRANSLATE(f);
        case "CONDENSE"_c: return LeerCONDENSE(f);
        case "OVERLAY"_c: return LeerOVERLAY(f);
        case "REPLACE"_c: return LeerREPLACE(f);
        case "SEARCH"_c: return LeerSEARCH(f);
        case "ADD"_c: return LeerCuenta(f, "TO"_c);
        case "SUBTRACT"_c: return LeerCuenta(f, "FROM"_c);
        case "MULTIPLY"_c:
        case "DIVIDE"_c: return LeerCuenta(f, "BY"_c);
        case "DESCRIBE"_c: return LeerDESCRIBE(f);
        case "ASSIGN"_c: return LeerASSIGN(f);
        case "OPEN"_c:
        case "CLOSE"_c:
        case "TRANSFER"_c: return LeerDataset(f);
        case "READ"_c: return LeerREAD(f);
        case "APPEND"_c: return LeerAPPEND(f);
        case "COLLECT"_c: return LeerCOLLECT(f);
        case "SORT"_c: return LeerSORT(f);
        case "REFRESH"_c: return LeerREFRESH(f);
        case "SELECT"_c: return LeerSELECT(f);
        case "INSERT"_c: return LeerINSERT(f);
        case "UPDATE"_c: return LeerUPDATE(f);
        case "MODIFY"_c: return LeerMODIFY(f);
        case "DELETE"_c: return LeerDELETE(f);
        case "COMMIT"_c: return f.Exige("WORK"_c) && (!f.Toma("AND"_c) || f.Exige("WAIT"_c)) && f.Fin();
        case "ROLLBACK"_c: return f.Exige("WORK"_c) && f.Fin();
        case "CHECK"_c: return LeerCHECK(f);
        case "EXIT"_c: return LeerEXIT(f);
        case "CONTINUE"_c:
        case "STOP"_c: return f.Fin();
        case "LOCAL"_c: return f.Variable() && f.Fin();
        default: return LeerBloque(f);
    }
}

bool Revisor::LeerBloque(Frase& f) {
    const Palabra& primera = f.Primera();
    auto& bloques = contexto_.bloques;
    switch (primera.clave) {
        case "IF"_c: bloques.Abrir(primera, "ENDIF"_c); return f.Condicion(ClaseDeCondicion::Logica) && f.Fin();
        case "ELSEIF"_c: bloques.Continuar(primera, "ENDIF"_c); return f.Condicion(ClaseDeCondicion::Logica) && f.Fin();
        case "ELSE"_c: bloques.Continuar(primera, "ENDIF"_c); return f.Fin();
        case "CASE"_c: bloques.Abrir(primera, "ENDCASE"_c); return f.Operando() && f.Fin();
        case "WHEN"_c: bloques.Continuar(primera, "ENDCASE"_c); return LeerWHEN(f);
        case "DO"_c: bloques.Abrir(primera, "ENDDO"_c); return LeerDO(f);
        case "WHILE"_c:
            bloques.Abrir(primera, "ENDWHILE"_c);
            if (!f.Condicion(ClaseDeCondicion::Logica)) return false;
            return f.Es("VARY"_c) ? f.Resto() : f.Fin();
        case "LOOP"_c: bloques.Abrir(primera, "ENDLOOP"_c); return LeerLOOP(f);
        case "PROVIDE"_c: bloques.Abrir(primera, "ENDPROVIDE"_c); return f.Resto();
        case "TRY"_c: bloques.Abrir(primera, "ENDTRY"_c); return f.Resto();
        case "ON"_c: bloques.Abrir(primera, "ENDON"_c); return PasarOtra(f);
        case "CATCH"_c:
            if (f.Es("SYSTEM-EXCEPTIONS"_c)) bloques.Abrir(primera, "ENDCATCH"_c);
            return f.Resto();
        case "ENDIF"_c:
        case "ENDCASE"_c:
        case "ENDDO"_c:
        case "ENDWHILE"_c:
        case "ENDLOOP"_c:
        case "ENDSELECT"_c:
        case "ENDAT"_c:
        case "ENDEXEC"_c:
        case "ENDPROVIDE"_c:
        case "ENDTRY"_c:
        case "ENDON"_c:
        case "ENDCATCH"_c:
        case "END-OF-DEFINITION"_c: bloques.Cerrar(primera, primera.clave); return f.Fin();
        default: return LeerEvento(f);
    }
}

// The text of a FORM, a module or an event begins or ends.
void Revisor::NuevoTramo() {
    contexto_.bloques.CerrarTodos();
    contexto_.datos.SalirDeForma();
    contexto_.enPantalla = false;
}

bool Revisor::LeerEvento(Frase& f) {
    const Palabra& primera = f.Primera();
    auto& bloques = contexto_.bloques;
    switch (primera.clave) {
        case "FORM"_c: {
            NuevoTramo();
            const bool bien = LeerFORM(f);
            bloques.Abrir(primera, "ENDFORM"_c);
            return bien;
        }
        case "MODULE"_c:
        case "FUNCTION"_c:
            NuevoTramo();
            bloques.Abrir(primera, primera.clave == "MODULE"_c ? "ENDMODULE"_c : "ENDFUNCTION"_c);
            return f.Resto();
        case "ENDFORM"_c:
        case "ENDMODULE"_c:
        case "ENDFUNCTION"_c:
            bloques.Cerrar(primera, primera.clave);
            NuevoTramo();
            return f.Fin();
        case "START-OF-SELECTION"_c:
        case "END-OF-SELECTION"_c:
        case "INITIALIZATION"_c:
        case "LOAD-OF-PROGRAM"_c: NuevoTramo(); return f.Fin();
        case "TOP-OF-PAGE"_c:
        case "END-OF-PAGE"_c: NuevoTramo(); return f.Resto();
        case "AT"_c:
            if (f.EsAlguna({"SELECTION-SCREEN"_c, "LINE-SELECTION"_c, "USER-COMMAND"_c}) ||
                (f.Hay() && ClaveDe(f.Actual().texto.substr(0, 2)) == "PF"_c && f.Actual().texto.size() <= 4)) {
                NuevoTramo();
                contexto_.enPantalla = f.Es("SELECTION-SCREEN"_c);
            } else {
                bloques.Abrir(primera, "ENDAT"_c);
            }
            return LeerAT(f);
        default: return LeerOtra(f);
    }
}

bool Revisor::LeerEXEC(Frase& f) {
    if (!f.Exige("SQL"_c)) return false;
    bool bien = true;
    if (f.Toma("PERFORMING"_c)) {
        bien = f.Hay() || f.Falla(Clase::OperandoAusente);
        if (bien) {
            PedirForma(contexto_, f.Actual());
            f.Avanzar();
        }
    }
    bien = bien && f.Fin();
    contexto_.bloques.Abrir(f.Primera(), "ENDEXEC"_c);
    RevisarSQLNativo(lector_.Saltar("ENDEXEC"), contexto_);
    return bien;
}

bool Revisor::LeerDEFINE(Frase& f) {
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    contexto_.macros.insert(f.Actual().clave);
    f.Avanzar();
    contexto_.bloques.Abrir(f.Primera(), "END-OF-DEFINITION"_c);
    const auto texto = lector_.Saltar("END-OF-DEFINITION").texto;
    if (texto.data() + texto.size() == reporte_.data() + reporte_.size()) contexto_.incierto = true;
    return f.Fin();
}

// Words of the language in statements that aren't read; the record of a report may be called like the first part of one.
bool EsPalabraConGuion(Clave palabra) {
    switch (palabra) {
        case "ABAP-SOURCE"_c:
        case "CUSTOMER-FUNCTION"_c:
        case "DISPLAY-MODE"_c:
        case "EXIT-COMMAND"_c:
        case "FIELD-SYMBOL"_c:
        case "HELP-ID"_c:
        case "INDEX-LINE"_c:
        case "INVERTED-DATE"_c:
        case "LEFT-JUSTIFIED"_c:
        case "LINE-COUNT"_c:
        case "LINE-SELECTION"_c:
        case "LINE-SIZE"_c:
        case "LIST-PROCESSING"_c:
        case "MESSAGE-ID"_c:
        case "NEW-SECTION"_c:
        case "NO-GAP"_c:
        case "NO-GAPS"_c:
        case "NO-HEADING"_c:
        case "NO-SCROLLING"_c:
        case "NO-TITLE"_c:
        case "NO-TOPOFPAGE"_c:
        case "NO-ZERO"_c:
        case "PF-STATUS"_c:
        case "RIGHT-JUSTIFIED"_c:
        case "SAP-SPOOL"_c:
        case "SCROLL-BOUNDARY"_c:
        case "SELECTION-SCREEN"_c:
        case "SELECTION-SET"_c:
        case "SELECTION-SETS"_c:
        case "SELECTION-TABLE"_c:
        case "SYSTEM-EXCEPTIONS"_c:
        case "USER-COMMAND"_c:
        case "WITH-HEADING"_c:
        case "WITH-TITLE"_c: return true;
        default: return EsPalabraDeSentencia(palabra);
    }
}

// A statement of which only the components are looked at.
bool Revisor::PasarOtra(Frase& f) {
    const Clave sentencia = f.Primera().clave;
    if ((sentencia == "SUBMIT"_c || sentencia == "BREAK"_c) && f.Hay()) f.Avanzar();  // a program, a user
    for (; f.Hay(); f.Avanzar()) {
        // Names of what is kept elsewhere.
        const bool ajeno =
            f.Es("="_c, 1) || (sentencia == "EXPORT"_c && f.Es("FROM"_c, 1)) || (sentencia == "IMPORT"_c && f.Es("TO"_c, 1));
        if (!ajeno && !EsPalabraConGuion(f.Actual().clave)) f.RevisarComponente(f.Actual());
    }
    return true;
}

// What is known of these is only that they declare something, or that their end is a statement of its own.
bool Revisor::LeerOtra(Frase& f) {
    switch (f.Primera().clave) {
        case "EXEC"_c: return LeerEXEC(f);
        case "DEFINE"_c: return LeerDEFINE(f);
        case "REPORT"_c:
        case "PROGRAM"_c: return f.Algo() && f.Resto();
        case "CLASS"_c:
        case "INTERFACE"_c: {
            bool entera = true;
            for (std::size_t n = 0; f.Hay(n); ++n) entera = entera && !f.EsAlguna({"LOAD"_c, "DEFERRED"_c, "FRIENDS"_c}, n);
            NuevoTramo();
            enClase_ = entera;
            return f.Resto();
        }
        case "TYPE-POOLS"_c:
            if (f.Hay()) contexto_.grupos.insert(f.Actual().clave);
            return f.Algo() && f.Fin();
        case "CONTROLS"_c:
        case "CONTEXTS"_c:
        case "FIELD-GROUPS"_c:
            if (f.Hay()) contexto_.datos.AgregarGlobal(DatoAbierto(f.Actual().clave, f.Actual().texto, f.Actual().linea));
            return f.Algo() && f.Resto();
        case "NODES"_c:
        case "INFOTYPES"_c: contexto_.incierto = true; return f.Resto();
        case "GET"_c:
            if ((!f.Hay(1) && !f.Es("TIME"_c)) || f.Es("LATE"_c, 1)) {
                // A node of a logical database, which brings its own declarations.
                NuevoTramo();
                contexto_.incierto = true;
            }
            return PasarOtra(f);
        default: return PasarOtra(f);
    }
}

}  // namespace

std::vector<Falta> RevisarReporte(std::string_view reporte) { return Revisor(reporte).Revisar(); }

}  // namespace qor::abap
