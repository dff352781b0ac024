// Statements that compute, move and edit values, and those that decide what comes next.
#include "abap/check/rules.h"

namespace qor::abap {

namespace {
using Clase = Falta::Clase;
}  // namespace

bool LeerAsignacion(Frase& f) {
    while (true) {
        if (!f.Destino()) return false;
        if (!f.Toma("="_c) && !f.Toma("?="_c)) return f.FallaAqui();
        if (!f.Es("="_c, 1) && !f.Es("?="_c, 1)) break;
    }
    return f.Expresion() && f.Fin();
}

bool LeerCOMPUTE(Frase& f) {
    f.Toma("EXACT"_c);
    return LeerAsignacion(f);
}

bool LeerDO(Frase& f) {
    if (!f.Hay()) return true;
    if (!f.EsAlguna({"VARYING"_c}) && !(f.Expresion() && f.Exige("TIMES"_c))) return false;
    while (f.Toma("VARYING"_c)) {
        if (!(f.Variable() && f.Exige("FROM"_c) && f.Variable() && f.Exige("NEXT"_c) && f.Variable())) return false;
        if (f.Toma("RANGE"_c) && !f.Algo()) return false;
    }
    return f.Fin();
}

bool LeerWHEN(Frase& f) {
    if (f.Es("OTHERS"_c) && !f.Hay(1)) return f.Resto();
    while (true) {
        if (!f.Operando()) return false;
        if (!f.Toma("OR"_c)) return f.Fin();
    }
}

bool LeerCHECK(Frase& f) {
    if (f.Es("SELECT-OPTIONS"_c)) return f.Resto();
    // A selection table alone is a condition here.
    if (f.Hay() && !f.Hay(1)) return f.Operando();
    return f.Condicion(ClaseDeCondicion::Logica) && f.Fin();
}

bool LeerEXIT(Frase& f) {
    if (f.Toma("FROM"_c)) return f.Algo() && f.Fin();
    return f.Fin();
}

bool LeerAT(Frase& f) {
    if (f.Toma("SELECTION-SCREEN"_c)) {
        if (!f.Hay()) return true;
        if (f.Toma("OUTPUT"_c)) return f.Fin();
        if (!f.Exige("ON"_c)) return false;
        if (f.Toma("VALUE-REQUEST"_c) || f.Toma("HELP-REQUEST"_c)) return f.Exige("FOR"_c) && f.Variable() && f.Fin();
        if (f.Toma("END"_c)) return f.Exige("OF"_c) && f.Variable() && f.Fin();
        if (f.Toma("RADIOBUTTON"_c)) return f.Exige("GROUP"_c) && f.Algo() && f.Fin();
        if (f.Toma("BLOCK"_c)) return f.Algo() && f.Fin();
        if (f.Toma("EXIT-COMMAND"_c)) return f.Fin();
        return f.Variable() && f.Fin();
    }
    return f.Algo() && f.Resto();
}

bool LeerMOVE(Frase& f) {
    if (f.Toma("EXACT"_c) && f.Es("TO"_c, 1)) return f.Rendirse();
    if (f.Es("TO"_c) && !f.Es("TO"_c, 1)) return f.Falla(Clase::OperandoAusente);
    if (!f.Expresion()) return false;
    if (!f.Toma("?TO"_c) && !f.Exige("TO"_c)) return false;
    if (!f.Destino()) return false;
    if (f.Toma("PERCENTAGE"_c)) {
        if (!f.Operando()) return false;
        if (!f.Toma("LEFT"_c)) f.Toma("RIGHT"_c);
    }
    return f.Fin();
}

bool LeerCLEAR(Frase& f) {
    if (!f.Destino()) return false;
    if (!f.Toma("WITH"_c)) return f.Fin();
    if (f.Es("NULL"_c)) return f.Resto();
    if (!f.Operando()) return false;
    if (f.Toma("IN"_c) && !(f.Algo() && f.Exige("MODE"_c))) return false;
    return f.Fin();
}

bool LeerFREE(Frase& f) {
    if (f.Es("MEMORY"_c)) return f.Resto();
    if (f.Es("OBJECT"_c) && f.Hay(1)) f.Avanzar();
    return f.Destino() && f.Fin();
}

namespace {

// A new line, a position, a length: how the next value is placed. Answers whether a value may be missing.
bool PasarLugar(Frase& f) {
    if (!f.Hay() || f.Actual().EsLiteral()) return false;
    const auto texto = f.Actual().texto;
    if (texto.front() == '/') {
        f.Avanzar();
        return true;
    }
    const bool numero = texto.front() >= '0' && texto.front() <= '9';
    const bool posicion = numero && texto.find_first_not_of("0123456789") != std::string_view::npos;
    if ((texto.front() == '(' && texto.size() > 1) || posicion) {
        // (NAME) alone is a value by its name.
        if (f.Hay(1) && !f.Es("TO"_c, 1)) f.Avanzar();
        return false;
    }
    return false;
}

bool EsFormatoDeFecha(Clave clave) {
    switch (clave) {
        case "DD/MM/YY"_c:
        case "MM/DD/YY"_c:
        case "DD/MM/YYYY"_c:
        case "MM/DD/YYYY"_c:
        case "DDMMYY"_c:
        case "MMDDYY"_c:
        case "YYMMDD"_c:
        case "YYYY/MM/DD"_c:
        case "YY/MM/DD"_c: return true;
        default: return false;
    }
}

bool EsAdicionSola(Clave clave) {
    switch (clave) {
        case "NO-GAP"_c:
        case "NO-ZERO"_c:
        case "NO-SIGN"_c:
        case "NO-GROUPING"_c:
        case "NO-SCROLLING"_c:
        case "LEFT-JUSTIFIED"_c:
        case "RIGHT-JUSTIFIED"_c:
        case "CENTERED"_c:
        case "RESET"_c: return true;
        default: return EsFormatoDeFecha(clave);
    }
}

bool EsAdicionConEncendido(Clave clave) {
    switch (clave) {
        case "INTENSIFIED"_c:
        case "INVERSE"_c:
        case "HOTSPOT"_c:
        case "INPUT"_c:
        case "FRAMES"_c:
        case "PRINT"_c: return true;
        default: return false;
    }
}

bool EsAdicionConValor(Clave clave) {
    switch (clave) {
        case "UNDER"_c:
        case "CURRENCY"_c:
        case "UNIT"_c:
        case "DECIMALS"_c:
        case "ROUND"_c:
        case "EXPONENT"_c:
        case "QUICKINFO"_c:
        case "INDEX"_c:
        case "STYLE"_c: return true;
        default: return false;
    }
}

bool EsAdicion(const Frase& f, std::size_t n) {
    if (!f.Hay(n)) return true;
    const Clave clave = f.Mirar(n).clave;
    return EsAdicionSola(clave) || EsAdicionConEncendido(clave) || EsAdicionConValor(clave) ||
           f.EsAlguna({"TO"_c, "USING"_c, "COLOR"_c, "AS"_c, "TIME"_c, "ENVIRONMENT"_c}, n);
}

bool LeerAdicion(Frase& f) {
    const Clave clave = f.Actual().clave;
    if (EsAdicionSola(clave)) return f.Algo();
    if (EsAdicionConEncendido(clave)) {
        f.Avanzar();
        if (f.Toma("="_c)) return f.Operando();
        if (!f.Toma("ON"_c)) f.Toma("OFF"_c);
        return true;
    }
    if (EsAdicionConValor(clave)) {
        f.Avanzar();
        return f.Operando();
    }
    if (f.Toma("TO"_c)) return f.Destino();
    if (f.Toma("USING"_c)) {
        if (f.Toma("NO"_c)) return f.Exige("EDIT"_c, "MASK"_c);
        return f.Exige("EDIT"_c, "MASK"_c) && f.Operando();
    }
    if (f.Toma("COLOR"_c)) {
        if (f.Toma("="_c)) return f.Operando();
        if (!f.Algo()) return false;
        if (!f.Toma("ON"_c)) f.Toma("OFF"_c);
        return true;
    }
    if (f.Toma("AS"_c)) return f.Algo();
    if (f.EsAlguna({"TIME"_c, "ENVIRONMENT"_c})) return f.Rendirse();
    return f.Falla(Clase::PalabrasDeMas);
}

}  // namespace

bool LeerWRITE(Frase& f) {
    bool puedeFaltar = false;
    if (f.Es("AT"_c) && f.Hay(1)) {
        f.Avanzar();
        puedeFaltar = f.Actual().texto.front() == '/';
        f.Avanzar();
    } else {
        puedeFaltar = PasarLugar(f);
        // A number in front of a value is its position.
        if (f.Hay(1) && EsEntero(f.Actual().texto) && !EsAdicion(f, 1)) f.Avanzar();
    }
    if (!f.Hay()) return puedeFaltar || f.Falla(Clase::OperandoAusente);
    const auto texto = f.Actual().texto;
    if (!f.Actual().EsLiteral() && texto.front() == '(' && texto.size() > 2 && texto.back() == ')') {
        f.Avanzar();
    } else if (!(puedeFaltar && EsAdicion(f, 0) && f.Entorno().datos.Buscar(f.Actual().clave) == nullptr) && !f.Operando()) {
        return false;
    }
    while (f.Hay()) {
        if (!LeerAdicion(f)) return false;
    }
    return true;
}

bool LeerCONCATENATE(Frase& f) {
    if (f.Toma("LINES"_c, "OF"_c)) return f.Rendirse();
    if (f.Es("INTO"_c) && !f.Es("INTO"_c, 1)) return f.Falla(Clase::OperandoAusente);
    if (!(f.Operandos({"INTO"_c}) && f.Exige("INTO"_c) && f.Destino())) return false;
    if (f.Toma("IN"_c) && !(f.Algo() && f.Exige("MODE"_c))) return false;
    if (f.Toma("SEPARATED"_c) && !(f.Exige("BY"_c) && f.Operando())) return false;
    if (f.Toma("RESPECTING"_c) && !f.Exige("BLANKS"_c)) return false;
    return f.Fin();
}

bool LeerSPLIT(Frase& f) {
    if (!(f.Operando() && f.Exige("AT"_c) && f.Operando() && f.Exige("INTO"_c))) return false;
    if (f.Toma("TABLE"_c)) return f.Variable() && (f.Es("IN"_c) ? f.Rendirse() : f.Fin());
    if (!f.Destino()) return false;
    while (f.Hay()) {
        if (f.Es("IN"_c) && f.Es("MODE"_c, 2)) return f.Rendirse();
        if (!f.Destino()) return false;
    }
    return true;
}

bool LeerSHIFT(Frase& f) {
    if (!f.Destino()) return false;
    while (f.Hay()) {
        bool bien = true;
        if (f.Toma("BY"_c)) {
            bien = f.Operando() && f.Exige("PLACES"_c);
        } else if (f.Toma("UP"_c)) {
            bien = f.Exige("TO"_c) && f.Operando();
        } else if (f.Toma("DELETING"_c)) {
            bien = (f.Toma("LEADING"_c) || f.Exige("TRAILING"_c)) && f.Operando();
        } else if (f.Toma("IN"_c)) {
            bien = f.Algo() && f.Exige("MODE"_c);
        } else if (!f.Toma("LEFT"_c) && !f.Toma("RIGHT"_c) && !f.Toma("CIRCULAR"_c)) {
            bien = f.Falla(Clase::PalabrasDeMas);
        }
        if (!bien) return false;
    }
    return true;
}

bool LeerTRANSLATE(Frase& f) {
    if (!f.Destino()) return false;
    if (f.Toma("TO"_c)) {
        if (f.EsAlguna({"CODE"_c, "NUMBER"_c})) return f.Rendirse();
        return (f.Toma("UPPER"_c) || f.Exige("LOWER"_c)) && f.Exige("CASE"_c) && f.Fin();
    }
    if (f.Es("FROM"_c)) return f.Rendirse();
    return f.Exige("USING"_c) && f.Operando() && f.Fin();
}

bool LeerCONDENSE(Frase& f) {
    if (!f.Destino()) return false;
    f.Toma("NO-GAPS"_c);
    return f.Fin();
}

bool LeerOVERLAY(Frase& f) {
    if (!(f.Destino() && f.Exige("WITH"_c) && f.Operando())) return false;
    if (f.Toma("ONLY"_c) && !f.Operando()) return false;
    return f.Fin();
}

// REPLACE A WITH B INTO C. The form of later releases is not looked at.
bool LeerREPLACE(Frase& f) {
    for (std::size_t n = 0; f.Hay(n); ++n) {
        if (f.EsAlguna({"IN"_c, "OCCURRENCE"_c, "OCCURRENCES"_c, "SECTION"_c}, n)) return f.Rendirse();
    }
    if (!f.Operando()) return false;
    if (f.Toma("LENGTH"_c) && !f.Operando()) return false;
    if (!(f.Exige("WITH"_c) && f.Operando())) return false;
    if (f.Toma("LENGTH"_c) && !f.Operando()) return false;
    if (!(f.Exige("INTO"_c) && f.Destino())) return false;
    if (f.Toma("LENGTH"_c) && !f.Operando()) return false;
    return f.Fin();
}

bool LeerSEARCH(Frase& f) {
    if (!(f.Variable() && f.Exige("FOR"_c) && f.Operando())) return false;
    while (f.Hay()) {
        if (f.Toma("STARTING"_c) || f.Toma("ENDING"_c)) {
            if (!(f.Exige("AT"_c) && f.Operando())) return false;
        } else if (f.Toma("AND"_c)) {
            if (!f.Exige("MARK"_c)) return false;
        } else if (f.Es("IN"_c)) {
            return f.Rendirse();
        } else if (!f.Toma("ABBREVIATED"_c)) {
            return f.Falla(Clase::PalabrasDeMas);
        }
    }
    return true;
}

bool LeerCuenta(Frase& f, Clave enlace) {
    if (f.Es("THEN"_c, 1) || f.EsAlguna({"UNTIL"_c, "FROM"_c}, 3)) return f.Rendirse();
    // The result goes into the last one of ADD A TO B and SUBTRACT A FROM B, into the first one of A BY B.
    const bool alPrimero = enlace == "BY"_c;
    const Palabra* destino = f.Hay() ? &f.Actual() : nullptr;
    if (!(f.Operando() && f.Exige(enlace))) return false;
    if (!alPrimero) destino = f.Hay() ? &f.Actual() : nullptr;
    if (!f.Operando()) return false;
    if (f.Toma("GIVING"_c)) {
        if (!f.Destino()) return false;
    } else if (destino != nullptr && !f.Es("ACCORDING"_c)) {
        f.RevisarDestino(*destino);
    }
    if (f.Toma("ACCORDING"_c)) return f.Rendirse();
    return f.Fin();
}

bool LeerDESCRIBE(Frase& f) {
    if (f.Toma("TABLE"_c)) {
        if (!f.Variable()) return false;
        while (f.Toma("LINES"_c) || f.Toma("OCCURS"_c) || f.Toma("KIND"_c)) {
            if (!f.Destino()) return false;
        }
        return f.Fin();
    }
    if (!f.Toma("FIELD"_c)) return f.Algo() && f.Resto();
    if (!f.Operando()) return false;
    while (f.Hay()) {
        if (f.Toma("IN"_c)) {
            if (!(f.Algo() && f.Exige("MODE"_c))) return false;
        } else if (f.Toma("EDIT"_c)) {
            if (!(f.Exige("MASK"_c) && f.Destino())) return false;
        } else if (f.Toma("LENGTH"_c) || f.Toma("TYPE"_c) || f.Toma("COMPONENTS"_c) || f.Toma("OUTPUT-LENGTH"_c) ||
                   f.Toma("DECIMALS"_c) || f.Toma("HELP-ID"_c)) {
            if (!f.Destino()) return false;
        } else if (f.Es("INTO"_c)) {
            return f.Rendirse();
        } else {
            return f.Falla(Clase::PalabrasDeMas);
        }
    }
    return true;
}

bool LeerASSIGN(Frase& f) {
    if (f.Es("COMPONENT"_c) && f.Es("OF"_c, 2)) {
        f.Avanzar();
        if (!(f.Operando() && f.Exige("OF"_c) && f.Exige("STRUCTURE"_c) && f.Variable())) return false;
    } else if (f.EsAlguna({"LOCAL"_c, "TABLE"_c}) || (f.Hay() && f.Actual().texto.front() == '(')) {
        return f.Resto();
    } else if (!f.Operando()) {
        return false;
    }
    if (f.Es("INCREMENT"_c)) return f.Rendirse();
    if (!f.Exige("TO"_c)) return false;
    if (f.Hay() && !EsSimboloDeCampo(f.Actual().texto)) return f.Falla(Clase::NoEsSentencia);
    return f.Algo() && f.Resto();
}

namespace {

bool LeerAdicionDeOPEN(Frase& f) {
    if (f.Toma("FOR"_c)) {
        if (f.EsAlguna({"INPUT"_c, "OUTPUT"_c, "APPENDING"_c, "UPDATE"_c})) return f.Algo();
        return f.FallaAqui();
    }
    if (f.Toma("IN"_c)) {
        f.Toma("LEGACY"_c);
        return (f.Toma("TEXT"_c) || f.Exige("BINARY"_c)) && f.Exige("MODE"_c);
    }
    if (f.Toma("ENCODING"_c)) {
        if (f.EsAlguna({"DEFAULT"_c, "UTF-8"_c, "NON-UNICODE"_c})) return f.Algo();
        return f.FallaAqui();
    }
    if (f.Toma("IGNORING"_c)) return f.Exige("CONVERSION"_c, "ERRORS"_c);
    if (f.Toma("REPLACEMENT"_c)) return f.Exige("CHARACTER"_c) && f.Operando();
    if (f.Toma("AT"_c)) return f.Exige("POSITION"_c) && f.Operando();
    if (f.Toma("SKIPPING"_c)) return f.Exige("BYTE-ORDER"_c, "MARK"_c);
    if (f.Toma("CODE"_c)) return f.Exige("PAGE"_c) && f.Operando();
    if (f.Toma("BIG"_c) || f.Toma("LITTLE"_c)) return f.Exige("ENDIAN"_c);
    if (f.Toma("MESSAGE"_c) || f.Toma("TYPE"_c) || f.Toma("FILTER"_c)) return f.Operando();
    if (f.Toma("WITH"_c)) {
        if (f.Toma("BYTE-ORDER"_c)) return f.Exige("MARK"_c);
        if (f.EsAlguna({"NATIVE"_c, "SMART"_c, "UNIX"_c, "WINDOWS"_c})) return f.Algo() && f.Exige("LINEFEED"_c);
        return f.FallaAqui();
    }
    return f.Falla(Clase::PalabrasDeMas);
}

}  // namespace

bool LeerDataset(Frase& f) {
    const Clave sentencia = f.Primera().clave;
    if (sentencia == "TRANSFER"_c) {
        if (!(f.Operando() && f.Exige("TO"_c) && f.Operando())) return false;
        if (f.Toma("LENGTH"_c) && !f.Operando()) return false;
        if (f.Toma("NO"_c) && !(f.Exige("END"_c, "OF"_c) && f.Exige("LINE"_c))) return false;
        return f.Fin();
    }
    if (!f.Toma("DATASET"_c)) return f.Algo() && f.Resto();  // a cursor
    if (!f.Operando()) return false;
    while (sentencia == "OPEN"_c && f.Hay()) {
        if (!LeerAdicionDeOPEN(f)) return false;
    }
    return f.Fin();
}

}  // namespace qor::abap
