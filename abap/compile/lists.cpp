// The small statements on the list.
#include "abap/compile/list_statements.h"

namespace qor::abap {

namespace {

class LineaNueva : public Instruccion {
public:
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        maquina.Salida().NuevaLinea();
        return siguiente;
    }
};

class Salteado : public Instruccion {
public:
    explicit Salteado(std::optional<Operando> lineas) : lineas_(std::move(lineas)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        maquina.Salida().Saltar(lineas_ ? static_cast<int>(maquina.Entero(*lineas_)) : 1);
        return siguiente;
    }

private:
    std::optional<Operando> lineas_;
};

class Colocacion : public Instruccion {
public:
    explicit Colocacion(Operando columna) : columna_(std::move(columna)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        maquina.Salida().Posicion(static_cast<int>(maquina.Entero(columna_)));
        return siguiente;
    }

private:
    Operando columna_;
};

class LineasEnBlanco : public Instruccion {
public:
    explicit LineasEnBlanco(bool con) : con_(con) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        maquina.Salida().LineasEnBlanco(con_);
        return siguiente;
    }

private:
    bool con_;
};

void LeerNEW_PAGE(Compilador& c, Lectura& l) {
    while (l.Hay()) {
        if (l.Toma("LINE-COUNT"_c)) {
            c.LeerOperando(l);
        } else if (l.EsAlguna({"NO-TITLE"_c, "WITH-TITLE"_c, "NO-HEADING"_c, "WITH-HEADING"_c})) {
            l.Avanzar();
        } else {
            l.NoSePractica();
        }
    }
    c.Emitir<LineaNueva>();
}

}  // namespace

bool TomarApariencia(Compilador& c, Lectura& l) {
    const auto encendido = [&] {
        if (l.Toma("="_c)) {
            c.LeerOperando(l);
        } else if (!l.Toma("ON"_c)) {
            l.Toma("OFF"_c);
        }
    };
    if (l.Toma("RESET"_c) || l.Toma("NO-SCROLLING"_c)) return true;
    if (l.EsAlguna({"INTENSIFIED"_c, "INVERSE"_c, "HOTSPOT"_c, "INPUT"_c, "FRAMES"_c})) {
        l.Avanzar();
        encendido();
        return true;
    }
    if (!l.Toma("COLOR"_c)) return false;
    if (l.Es("="_c) || l.Es("OFF"_c)) {
        encendido();
        return true;
    }
    const std::initializer_list<Clave> colores = {"0"_c,
                                                  "1"_c,
                                                  "2"_c,
                                                  "3"_c,
                                                  "4"_c,
                                                  "5"_c,
                                                  "6"_c,
                                                  "7"_c,
                                                  "COL_BACKGROUND"_c,
                                                  "COL_HEADING"_c,
                                                  "COL_NORMAL"_c,
                                                  "COL_TOTAL"_c,
                                                  "COL_KEY"_c,
                                                  "COL_POSITIVE"_c,
                                                  "COL_NEGATIVE"_c,
                                                  "COL_GROUP"_c};
    if (!l.EsAlguna(colores)) l.Fallar("a color was expected");
    l.Avanzar();
    encendido();
    return true;
}

bool LeerDeListas(Compilador& c, Lectura& l) {
    switch (l.Primera().clave) {
        case "WRITE"_c: CompilarWRITE(c, l); return true;
        case "ULINE"_c: CompilarULINE(c, l); return true;
        case "MESSAGE"_c: CompilarMESSAGE(c, l); return true;
        case "SKIP"_c: {
            std::optional<Operando> lineas;
            if (l.Es("TO"_c) && l.Es("LINE"_c, 1)) l.NoSePractica();
            if (l.Hay()) lineas = c.LeerOperando(l);
            l.Fin();
            c.Emitir<Salteado>(std::move(lineas));
            return true;
        }
        case "NEW-LINE"_c:
            l.Toma("NO-SCROLLING"_c);
            l.Fin();
            c.Emitir<LineaNueva>();
            return true;
        case "NEW-PAGE"_c: LeerNEW_PAGE(c, l); return true;
        case "POSITION"_c: {
            auto columna = c.LeerOperando(l);
            l.Fin();
            c.Emitir<Colocacion>(std::move(columna));
            return true;
        }
        case "SET"_c: {
            if (!l.Toma("BLANK"_c, "LINES"_c)) return false;
            const bool con = l.Toma("ON"_c);
            if (!con) l.Exige("OFF"_c, "ON or OFF");
            l.Fin();
            c.Emitir<LineasEnBlanco>(con);
            return true;
        }
        case "FORMAT"_c:
            while (l.Hay()) {
                if (!TomarApariencia(c, l)) l.NoSePractica();
            }
            return true;
        case "HIDE"_c:  // nobody picks lines of the list
            c.LeerCampo(l);
            l.Fin();
            return true;
        default: return false;
    }
}

}  // namespace qor::abap
