// INSERT, UPDATE, MODIFY and DELETE of database tables, COMMIT WORK and ROLLBACK WORK.
#include <utility>

#include "abap/compile/database_values.h"
#include "abap/compile/open_sql_selection.h"

namespace qor::abap {

namespace {

void Terminar(Maquina& maquina, bool bien, std::int64_t filas) {
    maquina.PonerSubrc(bien ? 0 : 4);
    maquina.PonerSY("DBCNT", filas);
}

// ---- Whole rows ----

struct CambioDeFilas {
    enum class Que : std::uint8_t { Insertar, Actualizar, Modificar, Borrar };

    Que que = Que::Insertar;
    TablaDeBase tabla;
    std::optional<Operando> area;
    std::optional<OperandoDeTabla> filas;  // FROM TABLE
    bool conRepetidas = false;             // ACCEPTING DUPLICATE KEYS
};

class CambiarFilas : public Instruccion {
public:
    explicit CambiarFilas(CambioDeFilas cambio) : cambio_(std::move(cambio)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& base = maquina.Alrededor().base;
        std::vector<ValorDeBase> fila;
        if (cambio_.area) {
            const bool hecho = Cambiar(base, maquina.Resolver(*cambio_.area), fila);
            Terminar(maquina, hecho, hecho ? 1 : 0);
            return siguiente;
        }
        const TablaInterna& filas = maquina.Tabla(*cambio_.filas);
        std::int64_t hechas = 0;
        for (std::size_t i = 0; i < filas.Filas(); ++i) {
            const bool hecha = Cambiar(base, filas.CampoDeFila(i), fila);
            if (!hecha && cambio_.que == CambioDeFilas::Que::Insertar && !cambio_.conRepetidas) {
                throw Volcado("SAPSQL_ARRAY_INSERT_DUPREC", "A row is in " + cambio_.tabla.nombre + " already");
            }
            hechas += hecha ? 1 : 0;
        }
        Terminar(maquina, hechas == static_cast<std::int64_t>(filas.Filas()), hechas);
        return siguiente;
    }

private:
    bool Cambiar(BaseDeDatos& base, const Campo& campo, std::vector<ValorDeBase>& fila) const {
        const auto& tabla = *cambio_.tabla.estructura;
        if (campo.tipo == Tipo::Cadena || campo.largo < tabla.largo) {
            throw Volcado("SAPSQL_WA_TOO_SMALL", "The work area is shorter than a row of " + cambio_.tabla.nombre);
        }
        LeerFila(tabla, campo.datos, fila);
        switch (cambio_.que) {
            case CambioDeFilas::Que::Insertar: return base.Insertar(tabla, fila);
            case CambioDeFilas::Que::Actualizar: return base.ActualizarFila(tabla, fila) > 0;
            case CambioDeFilas::Que::Modificar: return base.Insertar(tabla, fila) || base.ActualizarFila(tabla, fila) > 0;
            case CambioDeFilas::Que::Borrar: break;
        }
        return base.BorrarFila(tabla, fila) > 0;
    }

    CambioDeFilas cambio_;
};

// TABLE [FROM AREA | FROM TABLE ITAB [ACCEPTING DUPLICATE KEYS]]
void LeerFilas(Compilador& c, Lectura& l, CambioDeFilas::Que que) {
    CambioDeFilas cambio;
    cambio.que = que;
    const Palabra palabra = l.Actual();
    cambio.tabla = LeerTablaDeBase(c, l);
    if (l.Toma("FROM"_c, "TABLE"_c)) {
        cambio.filas = c.LeerTabla(l);
        if (que == CambioDeFilas::Que::Insertar && l.Toma("ACCEPTING"_c)) {
            l.Exige("DUPLICATE"_c, "DUPLICATE");
            l.Exige("KEYS"_c, "KEYS");
            cambio.conRepetidas = true;
        }
    } else if (l.Toma("FROM"_c)) {
        cambio.area = c.LeerOperando(l);
    } else {
        cambio.area = c.BuscarOperando(palabra);
        if (!cambio.area || cambio.area->estructura == nullptr) {
            throw FallaDeSentencia{palabra, cambio.tabla.nombre + " has no work area: it is not declared with TABLES"};
        }
    }
    l.Fin();
    c.Emitir<CambiarFilas>(std::move(cambio));
}

// ---- Rows that meet a condition ----

class BorrarDonde : public Instruccion {
public:
    BorrarDonde(TablaDeBase tabla, std::optional<Donde> donde) : tabla_(std::move(tabla)), donde_(std::move(donde)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const auto donde = donde_ ? Evaluar(maquina, *donde_) : CondicionDeBase{};
        const auto filas = maquina.Alrededor().base.Borrar(tabla_.nombre, donde);
        Terminar(maquina, filas > 0, filas);
        return siguiente;
    }

private:
    TablaDeBase tabla_;
    std::optional<Donde> donde_;
};

struct CambioDeColumna {
    ColumnaDeBase columna;
    char operacion = '=';
    Operando valor;
};

class ActualizarDonde : public Instruccion {
public:
    ActualizarDonde(TablaDeBase tabla, std::vector<CambioDeColumna> cambios, std::optional<Donde> donde)
        : tabla_(std::move(tabla)), cambios_(std::move(cambios)), donde_(std::move(donde)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        std::vector<AsignacionDeBase> cambios;
        cambios.reserve(cambios_.size());
        for (const auto& cambio : cambios_) {
            auto valor = ValorParaColumna(maquina.Resolver(cambio.valor), cambio.columna.tipo);
            cambios.push_back({cambio.columna.nombre, std::move(valor), cambio.operacion});
        }
        const auto donde = donde_ ? Evaluar(maquina, *donde_) : CondicionDeBase{};
        const auto filas = maquina.Alrededor().base.Actualizar(tabla_.nombre, cambios, donde);
        Terminar(maquina, filas > 0, filas);
        return siguiente;
    }

private:
    TablaDeBase tabla_;
    std::vector<CambioDeColumna> cambios_;
    std::optional<Donde> donde_;
};

std::optional<Donde> LeerDondeOFin(Compilador& c, Lectura& l, const TablaDeBase& tabla) {
    std::optional<Donde> donde;
    if (l.Toma("WHERE"_c)) donde = LeerDonde(c, l, tabla, nullptr);
    l.Fin();
    return donde;
}

// COLUMN = VALUE, or COLUMN = COLUMN + VALUE
CambioDeColumna LeerCambio(Compilador& c, Lectura& l, const TablaDeBase& tabla) {
    CambioDeColumna cambio;
    cambio.columna = ExigirColumna(c, tabla, l.Actual());
    l.Avanzar();
    l.Exige("="_c, "=");
    if (l.Es("+"_c, 1) || l.Es("-"_c, 1)) {
        if (ExigirColumna(c, tabla, l.Actual()).nombre != cambio.columna.nombre) l.Fallar(cambio.columna.nombre + " was expected");
        cambio.operacion = l.Mirar(1).texto.front();
        l.Avanzar(2);
    }
    cambio.valor = c.LeerOperando(l);
    return cambio;
}

void LeerUPDATE(Compilador& c, Lectura& l) {
    if (!l.Es("SET"_c, 1)) return LeerFilas(c, l, CambioDeFilas::Que::Actualizar);
    auto tabla = LeerTablaDeBase(c, l);
    l.Avanzar();
    std::vector<CambioDeColumna> cambios;
    do {
        cambios.push_back(LeerCambio(c, l, tabla));
    } while (l.Hay() && !l.Es("WHERE"_c));
    auto donde = LeerDondeOFin(c, l, tabla);
    c.Emitir<ActualizarDonde>(std::move(tabla), std::move(cambios), std::move(donde));
}

void LeerDELETE_FROM(Compilador& c, Lectura& l) {
    auto tabla = LeerTablaDeBase(c, l);
    auto donde = LeerDondeOFin(c, l, tabla);
    c.Emitir<BorrarDonde>(std::move(tabla), std::move(donde));
}

// INSERT INTO TABLE VALUES AREA
void LeerINSERT_VALUES(Compilador& c, Lectura& l) {
    CambioDeFilas cambio;
    cambio.tabla = LeerTablaDeBase(c, l);
    l.Exige("VALUES"_c, "VALUES");
    cambio.area = c.LeerOperando(l);
    l.Fin();
    c.Emitir<CambiarFilas>(std::move(cambio));
}

// ---- The end of a unit of work ----

class TerminarUnidad : public Instruccion {
public:
    explicit TerminarUnidad(bool confirmar) : confirmar_(confirmar) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& base = maquina.Alrededor().base;
        confirmar_ ? base.Confirmar() : base.Deshacer();
        maquina.PonerSubrc(0);
        return siguiente;
    }

private:
    bool confirmar_;
};

void LeerFinDeUnidad(Compilador& c, Lectura& l, bool confirmar) {
    l.Exige("WORK"_c, "WORK");
    if (confirmar && l.Toma("AND"_c)) l.Exige("WAIT"_c, "WAIT");
    l.Fin();
    c.Emitir<TerminarUnidad>(confirmar);
}

// Whether the word behind the statement's first one can be a table of the database, and no internal table.
bool EsDeBase(Compilador& c, const Lectura& l) {
    if (!l.Hay() || l.Actual().EsLiteral() || !EsNombreDeDato(l.Actual().texto)) return false;
    return !c.BuscarTabla(l.Actual());
}

}  // namespace

bool LeerDeBase(Compilador& c, Lectura& l) {
    using Que = CambioDeFilas::Que;
    switch (l.Primera().clave) {
        case "SELECT"_c: return LeerSELECT(c, l);
        case "EXEC"_c: return LeerEXEC(c, l);
        case "COMMIT"_c: return LeerFinDeUnidad(c, l, true), true;
        case "ROLLBACK"_c: return LeerFinDeUnidad(c, l, false), true;
        case "UPDATE"_c: return LeerUPDATE(c, l), true;
        case "INSERT"_c:
            if (l.Es("INTO"_c) && l.Es("VALUES"_c, 2)) {
                l.Avanzar();
                return LeerINSERT_VALUES(c, l), true;
            }
            if ((l.Hay(1) && !l.Es("FROM"_c, 1)) || !EsDeBase(c, l)) return false;
            return LeerFilas(c, l, Que::Insertar), true;
        case "MODIFY"_c:
            if ((l.Hay(1) && !l.Es("FROM"_c, 1)) || !EsDeBase(c, l)) return false;
            return LeerFilas(c, l, Que::Modificar), true;
        case "DELETE"_c:
            if (l.Es("FROM"_c) && l.Hay(1)) {
                l.Avanzar();
                return LeerDELETE_FROM(c, l), true;
            }
            if ((l.Hay(1) && !l.Es("FROM"_c, 1)) || !EsDeBase(c, l)) return false;
            return LeerFilas(c, l, Que::Borrar), true;
        default: return false;
    }
}

}  // namespace qor::abap
