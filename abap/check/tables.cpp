// Internal tables, and the statements that they share with those of the database.
#include "abap/check/rules.h"

namespace qor::abap {

namespace {

using Clase = Falta::Clase;

// The name of a table of either kind, and its line where it is known.
bool LeerTabla(Frase& f, const Dato*& linea) {
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    const Palabra palabra = f.Actual();
    if (!f.Variable()) return false;
    // A second look tells no second fault.
    linea = f.Revisar(palabra);
    return true;
}

// COMPONENT = VALUE, again and again.
bool LeerClave(Frase& f, const Dato* linea, std::initializer_list<Clave> hasta) {
    if (f.Toma("="_c) || !f.Es("="_c, 1)) return f.Operando();  // the whole line, or the key's part of it
    while (f.Hay() && !(f.EsAlguna(hasta) && !f.Es("="_c, 1))) {
        if (!(f.Componente(linea) && f.Exige("="_c) && f.Operando())) return false;
    }
    return true;
}

bool EsClausulaDeTabla(const Frase& f) {
    return f.EsAlguna({"INTO"_c, "ASSIGNING"_c, "FROM"_c, "TO"_c, "WHERE"_c, "INDEX"_c, "TRANSPORTING"_c, "WITH"_c, "COMPARING"_c,
                       "BINARY"_c, "REFERENCE"_c, "USING"_c});
}

// What LOOP, READ and MODIFY have behind the table.
bool LeerClausulaDeTabla(Frase& f, const Dato* linea) {
    if (f.Toma("INTO"_c)) return f.Destino();
    if (f.Toma("REFERENCE"_c)) return f.Exige("INTO"_c) && f.Variable();
    if (f.Toma("ASSIGNING"_c)) {
        if (!f.Algo()) return false;
        f.Toma("CASTING"_c);
        return true;
    }
    if (f.Toma("FROM"_c) || f.Toma("TO"_c) || f.Toma("INDEX"_c)) return f.Operando();
    if (f.Toma("WHERE"_c)) return f.Condicion(ClaseDeCondicion::DeTabla, linea);
    if (f.Toma("TRANSPORTING"_c)) {
        if (f.Toma("NO"_c)) return f.Exige("FIELDS"_c);
        if (f.Toma("ALL"_c)) return f.Exige("FIELDS"_c);
        while (f.Hay() && !EsClausulaDeTabla(f)) {
            if (!f.Componente(linea)) return false;
        }
        return true;
    }
    if (f.Toma("COMPARING"_c)) {
        if (f.Toma("ALL"_c)) return f.Exige("FIELDS"_c);
        if (f.Toma("NO"_c)) return f.Exige("FIELDS"_c);
        while (f.Hay() && !EsClausulaDeTabla(f)) {
            if (!f.Componente(linea)) return false;
        }
        return true;
    }
    if (f.Toma("USING"_c)) return f.Rendirse();
    return f.Falla(Clase::PalabrasDeMas);
}

bool LeerClausulasDeTabla(Frase& f, const Dato* linea) {
    while (f.Hay()) {
        if (f.Toma("WITH"_c)) {
            if (f.Toma("TABLE"_c)) {
                if (!f.Exige("KEY"_c)) return false;
            } else if (!f.Exige("KEY"_c)) {
                return false;
            }
            if (!LeerClave(f, linea, {"BINARY"_c, "INTO"_c, "TRANSPORTING"_c, "COMPARING"_c, "ASSIGNING"_c, "REFERENCE"_c}))
                return false;
        } else if (f.Toma("BINARY"_c)) {
            if (!f.Exige("SEARCH"_c)) return false;
        } else if (!LeerClausulaDeTabla(f, linea)) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool LeerLOOP(Frase& f) {
    if (!f.Hay()) return true;
    if (f.Es("WITH"_c)) return f.Resto();
    if (!f.Exige("AT"_c)) return false;
    if (f.Es("SCREEN"_c) || f.Es("GROUP"_c)) return f.Resto();
    const Dato* linea = nullptr;
    return f.Tabla(linea) && LeerClausulasDeTabla(f, linea);
}

bool LeerREAD(Frase& f) {
    if (f.Toma("DATASET"_c)) {
        if (!(f.Operando() && f.Exige("INTO"_c) && f.Destino())) return false;
        while (f.Toma("LENGTH"_c) || f.Toma("MAXIMUM"_c, "LENGTH"_c) || f.Toma("ACTUAL"_c, "LENGTH"_c)) {
            if (!f.Operando()) return false;
        }
        return f.Fin();
    }
    if (!f.Toma("TABLE"_c)) return f.Algo() && f.Resto();
    const Dato* linea = nullptr;
    return f.Tabla(linea) && LeerClausulasDeTabla(f, linea);
}

bool LeerAPPEND(Frase& f) {
    if (f.Es("LINES"_c) && f.Es("OF"_c, 1)) {
        f.Avanzar(2);
        if (!f.Variable()) return false;
        while (f.Es("FROM"_c) || (f.Es("TO"_c) && f.Es("TO"_c, 2))) {
            f.Avanzar();
            if (!f.Operando()) return false;
        }
        return f.Exige("TO"_c) && f.Variable() && f.Fin();
    }
    if (!f.Toma("INITIAL"_c, "LINE"_c)) {
        const Dato* linea = nullptr;
        if (!(f.Es("TO"_c, 1) ? f.Operando() : f.Tabla(linea))) return false;
    }
    if (f.Toma("TO"_c) && !f.Variable()) return false;
    if (f.Toma("ASSIGNING"_c) && !f.Algo()) return false;
    if (f.Es("REFERENCE"_c)) return f.Rendirse();
    if (f.Toma("SORTED"_c) && !(f.Exige("BY"_c) && f.Algo())) return false;
    return f.Fin();
}

bool LeerCOLLECT(Frase& f) {
    if (!f.Operando()) return false;
    if (f.Toma("INTO"_c) && !f.Variable()) return false;
    if (f.Toma("ASSIGNING"_c) && !f.Algo()) return false;
    if (f.Toma("SORTED"_c) && !(f.Exige("BY"_c) && f.Algo())) return false;
    return f.Fin();
}

bool LeerSORT(Frase& f) {
    const Dato* linea = nullptr;
    const auto esAdicion = [&f] { return f.EsAlguna({"BY"_c, "ASCENDING"_c, "DESCENDING"_c, "AS"_c, "STABLE"_c}); };
    if (f.Hay() && !esAdicion() && !f.Tabla(linea)) return false;
    bool porCampos = false;
    while (f.Hay()) {
        if (f.Toma("BY"_c)) {
            if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
            porCampos = true;
        } else if (f.Toma("AS"_c)) {
            if (!f.Exige("TEXT"_c)) return false;
        } else if (!f.Toma("ASCENDING"_c) && !f.Toma("DESCENDING"_c) && !f.Toma("STABLE"_c)) {
            if (!porCampos) return f.Falla(Clase::PalabrasDeMas);
            if (!f.Componente(linea)) return false;
        }
    }
    return true;
}

bool LeerREFRESH(Frase& f) {
    if (f.Es("CONTROL"_c) && f.Hay(1)) return f.Resto();
    const Dato* linea = nullptr;
    if (!f.Tabla(linea)) return false;
    if (f.Toma("FROM"_c)) return f.Exige("TABLE"_c) && f.Algo() && f.Fin();
    return f.Fin();
}

namespace {

// Rows into a table of the database.
bool LeerINSERT_VALUES(Frase& f) {
    if (!f.Algo()) return false;
    f.Toma("CLIENT"_c, "SPECIFIED"_c);
    if (f.Es("("_c)) return f.Rendirse();
    return f.Exige("VALUES"_c) && f.Operando() && f.Fin();
}

bool LeerINSERT_FROM(Frase& f) {
    if (f.Es("("_c)) return f.Rendirse();
    if (!f.Toma("TABLE"_c)) return f.Operando() && f.Fin();
    if (!f.Variable()) return false;
    if (f.Toma("ACCEPTING"_c)) return f.Exige("DUPLICATE"_c, "KEYS"_c) && f.Fin();
    return f.Fin();
}

// Lines of another internal table.
bool LeerINSERT_LINES(Frase& f) {
    if (!f.Variable()) return false;
    while (f.Toma("FROM"_c) || f.Toma("TO"_c)) {
        if (!f.Operando()) return false;
    }
    if (!f.Exige("INTO"_c)) return false;
    f.Toma("TABLE"_c);
    return f.Variable() && f.Resto();
}

}  // namespace

bool LeerINSERT(Frase& f) {
    if (f.EsAlguna({"REPORT"_c, "TEXTPOOL"_c}) && f.Hay(1)) return f.Resto();
    if (f.Toma("INTO"_c)) return LeerINSERT_VALUES(f);
    if (f.Toma("LINES"_c, "OF"_c)) return LeerINSERT_LINES(f);
    if (f.Toma("INITIAL"_c, "LINE"_c)) return f.Exige("INTO"_c) && f.Variable() && f.Resto();
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    if (f.Actual().texto.front() == '(') return f.Resto();
    // With FROM the first name may be one of the database only.
    const bool conOrigen = f.EsAlguna({"FROM"_c, "CLIENT"_c}, 1);
    if (!(conOrigen ? f.Algo() : f.Operando())) return false;
    f.Toma("CLIENT"_c, "SPECIFIED"_c);
    if (f.Toma("FROM"_c)) return LeerINSERT_FROM(f);
    if (f.Toma("INTO"_c)) {
        f.Toma("TABLE"_c);
        if (!f.Variable()) return false;
    } else if (f.Hay() && !f.Es("INDEX"_c)) {
        return f.Rendirse();  // fields into a field group
    }
    if (f.Toma("INDEX"_c) && !f.Operando()) return false;
    if (f.EsAlguna({"ASSIGNING"_c, "REFERENCE"_c})) return f.Rendirse();
    return f.Fin();
}

bool LeerUPDATE(Frase& f) {
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    if (f.Actual().texto.front() == '(') return f.Resto();
    if (!f.Hay(1)) return f.Variable();
    if (!f.Algo()) return false;
    f.Toma("CLIENT"_c, "SPECIFIED"_c);
    if (f.Toma("FROM"_c)) {
        f.Toma("TABLE"_c);
        return f.Operando() && f.Fin();
    }
    if (!f.Exige("SET"_c)) return false;
    if (f.Hay() && f.Actual().texto.front() == '(') return f.Rendirse();
    do {
        if (!(f.Componente(nullptr) && f.Exige("="_c))) return false;
        // What is added to or taken from is a column.
        if (f.EsAlguna({"+"_c, "-"_c}, 1)) f.Avanzar(2);
        if (!f.Operando()) return false;
    } while (f.Hay() && !f.Es("WHERE"_c));
    if (f.Toma("WHERE"_c)) return f.Condicion(ClaseDeCondicion::DeBase) && f.Fin();
    return f.Fin();
}

namespace {

// Lines of an internal table, or rows of the database where FROM stands behind a name that the report does not declare.
bool LeerCambioDeTabla(Frase& f) {
    if (f.Es("TABLE"_c) && f.Hay(1)) f.Avanzar();
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    if (f.Actual().texto.front() == '(') return f.Resto();
    const bool deBase = f.EsAlguna({"FROM"_c, "CLIENT"_c}, 1) && f.Entorno().datos.Buscar(f.Actual().base) == nullptr;
    const Dato* linea = nullptr;
    if (!(deBase ? f.Algo() : LeerTabla(f, linea))) return false;
    f.Toma("CLIENT"_c, "SPECIFIED"_c);
    if (f.Toma("FROM"_c, "TABLE"_c)) return f.Variable() && f.Fin();
    return LeerClausulasDeTabla(f, linea);
}

}  // namespace

bool LeerMODIFY(Frase& f) {
    if (f.EsAlguna({"SCREEN"_c, "LINE"_c, "CURRENT"_c}) && (f.Hay(1) || f.Es("SCREEN"_c))) return f.Resto();
    return LeerCambioDeTabla(f);
}

bool LeerDELETE(Frase& f) {
    if (f.EsAlguna({"REPORT"_c, "TEXTPOOL"_c, "DYNPRO"_c, "DATASET"_c}) && f.Hay(1)) return f.Resto();
    if (f.Toma("FROM"_c)) {
        if (f.EsAlguna({"MEMORY"_c, "SHARED"_c, "DATABASE"_c})) return f.Rendirse();
        if (!f.Algo()) return false;
        f.Toma("CLIENT"_c, "SPECIFIED"_c);
        if (f.Toma("WHERE"_c)) return f.Condicion(ClaseDeCondicion::DeBase) && f.Fin();
        return f.Fin();
    }
    if (f.Toma("ADJACENT"_c)) {
        const Dato* linea = nullptr;
        if (!(f.Exige("DUPLICATES"_c, "FROM"_c) && LeerTabla(f, linea))) return false;
        return LeerClausulasDeTabla(f, linea);
    }
    return LeerCambioDeTabla(f);
}

}  // namespace qor::abap
