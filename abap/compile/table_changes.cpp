// MODIFY, DELETE and SORT of internal tables.
#include <algorithm>

#include "abap/compile/row_condition.h"
#include "abap/compile/table_statements.h"
#include "abap/values/conversion.h"
#include "abap/values/table_rows.h"

namespace qor::abap {

namespace {

// The row that a statement with INDEX, or in a loop without it, speaks of. Not there: false.
bool BuscarIndice(Maquina& maquina, const TablaInterna& tabla, const std::optional<Operando>& indice, std::size_t& fila) {
    fila = FilaDe(indice ? maquina.Entero(*indice) : static_cast<std::int64_t>(maquina.Tabix()));
    return fila < tabla.Filas();
}

// The first row with the same standard key as an area.
std::size_t BuscarPorArea(TablaInterna& tabla, const std::optional<std::vector<Componente>>& clave, const Campo& area) {
    std::vector<Igualdad> igualdades;
    for (const auto& componente : clave ? *clave : ClaveEstandar(tabla.Linea())) {
        if (componente.desplazamiento + componente.tipo.largo > area.largo) continue;
        igualdades.push_back({componente, CampoDeComponente(componente, area.datos)});
    }
    return BuscarFila(tabla, igualdades, 0);
}

// ---- MODIFY ----

class Cambio : public Instruccion {
public:
    enum class Cual : std::uint8_t { Indice, Clave, Condicion };

    OperandoDeTabla tabla;
    Operando area;
    Cual cual = Cual::Indice;
    std::optional<Operando> indice;
    std::optional<std::vector<Componente>> clave;
    std::unique_ptr<CondicionDeFilas> condicion;
    std::vector<Componente> componentes;  // TRANSPORTING; none: all

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& filas = maquina.Tabla(tabla);
        const Campo origen = maquina.Resolver(area);
        if (cual == Cual::Condicion) {
            ValoresDeCondicion valores;
            condicion->Tomar(maquina, valores);
            bool alguna = false;
            for (auto fila = condicion->Buscar(filas, valores, 0); fila < filas.Filas();
                 fila = condicion->Buscar(filas, valores, fila + 1)) {
                Cambiar(filas, fila, origen);
                alguna = true;
            }
            maquina.PonerSubrc(alguna ? 0 : 4);
            return siguiente;
        }
        std::size_t fila = 0;
        if (cual == Cual::Indice) {
            if (!BuscarIndice(maquina, filas, indice, fila)) fila = filas.Filas();
        } else {
            fila = BuscarPorArea(filas, clave, origen);
        }
        const bool hallada = fila < filas.Filas();
        if (hallada) Cambiar(filas, fila, origen);
        maquina.PonerSubrc(hallada ? 0 : 4);
        return siguiente;
    }

private:
    void Cambiar(TablaInterna& filas, std::size_t fila, const Campo& origen) const {
        MoverLinea(componentes, origen, filas.CampoDeFila(fila));
        filas.Cambia();
    }
};

// ---- DELETE ----

class BorradoDeUna : public Instruccion {
public:
    BorradoDeUna(OperandoDeTabla tabla, std::optional<Operando> indice) : tabla_(std::move(tabla)), indice_(std::move(indice)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& tabla = maquina.Tabla(tabla_);
        std::size_t fila = 0;
        const bool hallada = BuscarIndice(maquina, tabla, indice_, fila);
        if (hallada) tabla.Borrar(fila);
        maquina.PonerSubrc(hallada ? 0 : 4);
        return siguiente;
    }

private:
    OperandoDeTabla tabla_;
    std::optional<Operando> indice_;
};

// FROM, TO and WHERE.
class BorradoDeVarias : public Instruccion {
public:
    BorradoDeVarias(OperandoDeTabla tabla, Tramo tramo, std::unique_ptr<CondicionDeFilas> condicion)
        : tabla_(std::move(tabla)), tramo_(std::move(tramo)), condicion_(std::move(condicion)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& tabla = maquina.Tabla(tabla_);
        const auto [desde, hasta] = tramo_.En(maquina, tabla.Filas(), true);
        ValoresDeCondicion valores;
        if (condicion_) condicion_->Tomar(maquina, valores);
        std::vector<bool> marcas(tabla.Filas());
        bool alguna = false;
        for (std::size_t fila = desde; fila < hasta; ++fila) {
            if (condicion_) fila = condicion_->Buscar(tabla, valores, fila);
            if (fila >= hasta) break;
            marcas[fila] = alguna = true;
        }
        BorrarFilas(tabla, marcas);
        maquina.PonerSubrc(alguna ? 0 : 4);
        return siguiente;
    }

private:
    OperandoDeTabla tabla_;
    Tramo tramo_;
    std::unique_ptr<CondicionDeFilas> condicion_;
};

// DELETE TABLE: the first row that has a key.
class BorradoPorClave : public Instruccion {
public:
    OperandoDeTabla tabla;
    std::optional<Operando> area;
    std::optional<std::vector<Componente>> clave;  // of the area
    std::vector<Igualdad> igualdades;              // without an area, without values
    std::vector<Operando> valores;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& filas = maquina.Tabla(tabla);
        std::size_t fila = 0;
        if (area) {
            fila = BuscarPorArea(filas, clave, maquina.Resolver(*area));
        } else {
            auto iguales = igualdades;
            for (std::size_t i = 0; i < iguales.size(); ++i) iguales[i].valor = maquina.Resolver(valores[i]);
            fila = BuscarFila(filas, iguales, 0);
        }
        const bool hallada = fila < filas.Filas();
        if (hallada) filas.Borrar(fila);
        maquina.PonerSubrc(hallada ? 0 : 4);
        return siguiente;
    }
};

// DELETE ADJACENT DUPLICATES: of rows that are the same one behind the other the first one stays.
class BorradoDeRepetidas : public Instruccion {
public:
    BorradoDeRepetidas(OperandoDeTabla tabla, std::optional<std::vector<Componente>> componentes)
        : tabla_(std::move(tabla)), componentes_(std::move(componentes)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& tabla = maquina.Tabla(tabla_);
        const auto componentes = componentes_ ? *componentes_ : ClaveEstandar(tabla.Linea());
        std::vector<bool> marcas(tabla.Filas());
        bool alguna = false;
        std::size_t queda = 0;
        for (std::size_t fila = 1; fila < tabla.Filas(); ++fila) {
            if (!componentes.empty() && TieneLosMismos(componentes, tabla.CampoDeFila(queda), tabla.CampoDeFila(fila))) {
                marcas[fila] = alguna = true;
            } else {
                queda = fila;
            }
        }
        BorrarFilas(tabla, marcas);
        maquina.PonerSubrc(alguna ? 0 : 4);
        return siguiente;
    }

private:
    OperandoDeTabla tabla_;
    std::optional<std::vector<Componente>> componentes_;  // without, the standard key of the table that runs
};

// ---- SORT ----

class Ordenacion : public Instruccion {
public:
    Ordenacion(OperandoDeTabla tabla, std::vector<ClaveDeOrden> claves, bool descendente)
        : tabla_(std::move(tabla)), claves_(std::move(claves)), descendente_(descendente) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& tabla = maquina.Tabla(tabla_);
        if (!claves_.empty()) {
            Ordenar(tabla, claves_);
            return siguiente;
        }
        std::vector<ClaveDeOrden> claves;
        for (auto& componente : ClaveEstandar(tabla.Linea())) claves.push_back({std::move(componente), descendente_});
        Ordenar(tabla, claves);
        return siguiente;
    }

private:
    OperandoDeTabla tabla_;
    std::vector<ClaveDeOrden> claves_;  // none: the standard key
    bool descendente_;                  // of that
};

// MODIFY TABLE and DELETE TABLE, where no table of the database has that name.
bool TomarTABLE(Compilador& c, Lectura& l) {
    if (!l.Es("TABLE"_c) || !HayTabla(c, l, 1)) return false;
    l.Avanzar();
    return true;
}

void CompilarDELETE_ADJACENT(Compilador& c, Lectura& l) {
    l.Exige("DUPLICATES"_c, "DUPLICATES");
    l.Exige("FROM"_c, "FROM");
    auto tabla = c.LeerTabla(l);
    auto componentes = ClaveConocida(tabla);
    if (l.Toma("COMPARING"_c)) {
        if (l.Toma("ALL"_c, "FIELDS"_c)) {
            if (tabla.dinamica) l.NoSePractica();
            componentes = std::vector{LineaEntera(tabla.linea)};
        } else {
            componentes = LeerPartes(c, l, tabla, {});
        }
    }
    l.Fin();
    c.Emitir<BorradoDeRepetidas>(std::move(tabla), std::move(componentes));
}

void CompilarDELETE_TABLE(Compilador& c, Lectura& l) {
    auto borrado = std::make_unique<BorradoPorClave>();
    borrado->tabla = c.LeerTabla(l);
    if (l.Toma("WITH"_c)) {
        l.Exige("TABLE"_c, "TABLE KEY");
        l.Exige("KEY"_c, "KEY");
        while (l.Hay()) {
            borrado->igualdades.push_back({LeerParte(c, l, borrado->tabla), {}});
            l.Exige("="_c, "=");
            borrado->valores.push_back(c.LeerOperando(l));
        }
    } else {
        borrado->area = l.Toma("FROM"_c) ? c.LeerCampo(l) : CabeceraDe(l, borrado->tabla);
        borrado->clave = ClaveConocida(borrado->tabla);
    }
    l.Fin();
    c.Emitir(std::unique_ptr<Instruccion>(std::move(borrado)));
}

}  // namespace

bool CompilarMODIFY(Compilador& c, Lectura& l) {
    auto cambio = std::make_unique<Cambio>();
    const bool porClave = TomarTABLE(c, l);
    if (!HayTabla(c, l)) return false;
    cambio->tabla = c.LeerTabla(l);
    if (porClave) {
        cambio->cual = Cambio::Cual::Clave;
        cambio->clave = ClaveConocida(cambio->tabla);
    }
    std::optional<Operando> area;
    while (l.Hay()) {
        if (l.Toma("FROM"_c)) {
            area = c.LeerOperando(l);
        } else if (!porClave && l.Toma("INDEX"_c)) {
            cambio->indice = c.LeerOperando(l);
        } else if (l.Toma("TRANSPORTING"_c)) {
            cambio->componentes = LeerPartes(c, l, cambio->tabla, {"WHERE"_c, "FROM"_c, "INDEX"_c});
        } else if (!porClave && !cambio->indice && !cambio->componentes.empty() && l.Toma("WHERE"_c)) {
            cambio->cual = Cambio::Cual::Condicion;
            cambio->condicion = CondicionDeFilas::Leer(c, l, cambio->tabla);
            l.Fin();
        } else {
            l.NoSePractica();
        }
    }
    cambio->area = area ? std::move(*area) : CabeceraDe(l, cambio->tabla);
    c.Emitir(std::unique_ptr<Instruccion>(std::move(cambio)));
    return true;
}

bool CompilarDELETE(Compilador& c, Lectura& l) {
    if (l.Toma("ADJACENT"_c)) return CompilarDELETE_ADJACENT(c, l), true;
    if (TomarTABLE(c, l)) return CompilarDELETE_TABLE(c, l), true;
    if (!HayTabla(c, l)) return false;
    auto tabla = c.LeerTabla(l);
    if (!l.Hay() || l.Es("INDEX"_c)) {
        std::optional<Operando> indice;
        if (l.Toma("INDEX"_c)) indice = c.LeerOperando(l);
        l.Fin();
        c.Emitir<BorradoDeUna>(std::move(tabla), std::move(indice));
        return true;
    }
    Tramo tramo;
    std::unique_ptr<CondicionDeFilas> condicion;
    while (l.Hay()) {
        if (!tramo.desde && l.Toma("FROM"_c)) {
            tramo.desde = c.LeerOperando(l);
        } else if (!tramo.hasta && l.Toma("TO"_c)) {
            tramo.hasta = c.LeerOperando(l);
        } else if (!condicion && l.Toma("WHERE"_c)) {
            condicion = CondicionDeFilas::Leer(c, l, tabla);
        } else {
            l.NoSePractica();
        }
    }
    c.Emitir<BorradoDeVarias>(std::move(tabla), std::move(tramo), std::move(condicion));
    return true;
}

void CompilarSORT(Compilador& c, Lectura& l) {
    auto tabla = c.LeerTabla(l);
    std::vector<ClaveDeOrden> claves;
    l.Toma("STABLE"_c);
    bool descendente = l.Toma("DESCENDING"_c);
    if (!descendente) l.Toma("ASCENDING"_c);
    l.Toma("STABLE"_c);
    if (l.Toma("BY"_c)) {
        do {
            claves.push_back({LeerParte(c, l, tabla), descendente});
            if (l.Toma("DESCENDING"_c)) {
                claves.back().descendente = true;
            } else if (l.Toma("ASCENDING"_c)) {
                claves.back().descendente = false;
            }
        } while (l.Hay() && !l.Es("AS"_c) && !l.Es("STABLE"_c));
        l.Toma("STABLE"_c);
    }
    if (l.Hay()) l.NoSePractica();
    c.Emitir<Ordenacion>(std::move(tabla), std::move(claves), descendente);
}

}  // namespace qor::abap
