// READ TABLE.
#include <algorithm>

#include "abap/compile/table_statements.h"
#include "abap/values/conversion.h"
#include "abap/values/table_rows.h"

namespace qor::abap {

namespace {

// What happens to the row that is found.
struct Lugar {
    std::optional<Operando> area;         // where it goes to; nothing with TRANSPORTING NO FIELDS
    std::optional<Operando> simbolo;      // ASSIGNING
    std::vector<Componente> componentes;  // TRANSPORTING; none: all
    std::vector<Componente> comparados;   // COMPARING
    bool todosComparados = false;         // COMPARING ALL FIELDS
    bool sinTransporte = false;
};

class Leida : public Instruccion {
public:
    OperandoDeTabla tabla;
    Lugar lugar;

protected:
    std::size_t Poner(Maquina& maquina, TablaInterna& filas, std::size_t fila, std::size_t siguiente) const {
        maquina.PonerTabix(fila + 1);
        int subrc = 0;
        if (lugar.simbolo) {
            Apuntar(maquina, *lugar.simbolo, filas, fila);
        } else if (lugar.area) {
            const Campo origen = filas.CampoDeFila(fila);
            const Campo destino = maquina.Destino(*lugar.area);
            const bool distinta = (lugar.todosComparados && Comparar(origen, destino) != 0) ||
                                  (!lugar.comparados.empty() && !TieneLosMismos(lugar.comparados, origen, destino));
            if (distinta) subrc = 2;
            if (!lugar.sinTransporte) MoverLinea(lugar.componentes, origen, destino);
        }
        maquina.PonerSubrc(subrc);
        return siguiente;
    }

    static std::size_t Faltar(Maquina& maquina, std::size_t siguiente, int subrc = 4, std::size_t tabix = 0) {
        maquina.PonerTabix(tabix);
        maquina.PonerSubrc(subrc);
        return siguiente;
    }
};

class LeidaPorIndice : public Leida {
public:
    explicit LeidaPorIndice(Operando indice) : indice_(std::move(indice)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& filas = maquina.Tabla(tabla);
        const auto indice = maquina.Entero(indice_);
        if (indice < 1 || static_cast<std::size_t>(indice) > filas.Filas()) return Faltar(maquina, siguiente);
        return Poner(maquina, filas, static_cast<std::size_t>(indice - 1), siguiente);
    }

private:
    Operando indice_;
};

// WITH KEY.
class LeidaPorClave : public Leida {
public:
    std::vector<Igualdad> clave;  // without values
    std::vector<Operando> valores;
    bool alComienzo = false;  // the one value is compared with the beginning of the rows
    bool binaria = false;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& filas = maquina.Tabla(tabla);
        std::vector<Igualdad> igualdades = clave;
        for (std::size_t i = 0; i < igualdades.size(); ++i) igualdades[i].valor = maquina.Resolver(valores[i]);
        if (alComienzo) Acortar(igualdades.front(), filas.Linea());
        if (binaria) return BuscarEnOrden(maquina, filas, igualdades, siguiente);
        const auto fila = BuscarFila(filas, igualdades, 0);
        return fila == filas.Filas() ? Faltar(maquina, siguiente) : Poner(maquina, filas, fila, siguiente);
    }

private:
    static void Acortar(Igualdad& igualdad, const TipoDeCampo& linea) {
        Campo& valor = igualdad.valor;
        auto& componente = igualdad.componente;
        componente.tipo = linea;
        if (linea.tipo != Tipo::Estructura) return;
        componente.tipo = {Tipo::C, linea.largo};
        const auto largo = valor.tipo == Tipo::Cadena ? static_cast<std::uint32_t>(valor.cadena->size()) : valor.largo;
        componente.tipo.largo = std::min(linea.largo, largo);
    }

    std::size_t BuscarEnOrden(Maquina& maquina, TablaInterna& filas, std::span<const Igualdad> igualdades,
                              std::size_t siguiente) const {
        const auto comparar = [&](std::size_t fila) {
            for (const auto& igualdad : igualdades) {
                const int signo = Comparar(CampoDeFila(filas, igualdad.componente, fila), igualdad.valor);
                if (signo != 0) return signo;
            }
            return 0;
        };
        std::size_t bajo = 0;
        std::size_t alto = filas.Filas();
        while (bajo < alto) {
            const auto medio = bajo + (alto - bajo) / 2;
            if (comparar(medio) < 0) {
                bajo = medio + 1;
            } else {
                alto = medio;
            }
        }
        if (bajo == filas.Filas()) return Faltar(maquina, siguiente, 8, bajo + 1);
        if (comparar(bajo) != 0) return Faltar(maquina, siguiente, 4, bajo + 1);
        return Poner(maquina, filas, bajo, siguiente);
    }
};

// The standard key as an area has it: FROM, or without any addition as the header line has it, where blanks hold for every value.
class LeidaPorArea : public Leida {
public:
    LeidaPorArea(Operando area, std::optional<std::vector<Componente>> clave, bool conBlancos)
        : area_(std::move(area)), clave_(std::move(clave)), conBlancos_(conBlancos) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& filas = maquina.Tabla(tabla);
        const Campo area = maquina.Resolver(area_);
        std::vector<Igualdad> igualdades;
        for (const auto& componente : clave_ ? *clave_ : ClaveEstandar(filas.Linea())) {
            if (componente.desplazamiento + componente.tipo.largo > area.largo) continue;
            const Campo valor = CampoDeComponente(componente, area.datos);
            if (conBlancos_ && valor.Texto().find_first_not_of(' ') == std::string_view::npos) continue;
            igualdades.push_back({componente, valor});
        }
        const auto fila = BuscarFila(filas, igualdades, 0);
        return fila == filas.Filas() ? Faltar(maquina, siguiente) : Poner(maquina, filas, fila, siguiente);
    }

private:
    Operando area_;
    std::optional<std::vector<Componente>> clave_;
    bool conBlancos_;
};

constexpr std::initializer_list<Clave> trasClave = {"BINARY"_c,    "INTO"_c,  "TRANSPORTING"_c,
                                                    "COMPARING"_c, "INDEX"_c, "ASSIGNING"_c};

void LeerClave(Compilador& c, Lectura& l, LeidaPorClave& leida) {
    const auto agregar = [&](Componente componente) {
        leida.clave.push_back({std::move(componente), {}});
        leida.valores.push_back(c.LeerOperando(l));
    };
    if (l.Toma("="_c)) {
        if (leida.tabla.dinamica) l.NoSePractica();
        return agregar(LineaEntera(leida.tabla.linea));
    }
    if (!l.Es("="_c, 1) && !l.Es("EQ"_c, 1)) {
        leida.alComienzo = true;
        return agregar({});
    }
    while (l.Hay() && !(l.EsAlguna(trasClave) && !l.Es("="_c, 1) && !l.Es("EQ"_c, 1))) {
        auto componente = LeerParte(c, l, leida.tabla);
        if (!l.Toma("="_c)) l.Exige("EQ"_c, "=");
        agregar(std::move(componente));
    }
}

}  // namespace

bool CompilarREAD(Compilador& c, Lectura& l) {
    if (!l.Toma("TABLE"_c)) return false;
    const auto tabla = c.LeerTabla(l);
    Lugar lugar;
    std::unique_ptr<Leida> leida;
    bool sinArea = false;
    std::optional<Operando> area;
    const auto una = [&] {
        if (leida) l.NoSePractica();
    };
    while (l.Hay()) {
        if (l.Es("INDEX"_c)) {
            una();
            l.Avanzar();
            leida = std::make_unique<LeidaPorIndice>(c.LeerOperando(l));
        } else if (l.Es("WITH"_c)) {
            una();
            l.Avanzar();
            l.Toma("TABLE"_c);
            l.Exige("KEY"_c, "KEY");
            auto porClave = std::make_unique<LeidaPorClave>();
            porClave->tabla = tabla;
            LeerClave(c, l, *porClave);
            if (l.Toma("BINARY"_c, "SEARCH"_c)) porClave->binaria = true;
            leida = std::move(porClave);
        } else if (l.Es("FROM"_c)) {
            una();
            l.Avanzar();
            leida = std::make_unique<LeidaPorArea>(c.LeerCampo(l), ClaveConocida(tabla), false);
        } else if (l.Toma("INTO"_c)) {
            area = c.LeerDestino(l);
        } else if (l.Toma("ASSIGNING"_c)) {
            lugar.simbolo = LeerSimbolo(c, l);
        } else if (l.Toma("TRANSPORTING"_c)) {
            if (l.Toma("NO"_c, "FIELDS"_c)) {
                sinArea = true;
            } else if (!l.Toma("ALL"_c, "FIELDS"_c)) {
                lugar.componentes = LeerPartes(c, l, tabla, {"INDEX"_c, "WITH"_c, "COMPARING"_c, "INTO"_c, "FROM"_c});
            }
        } else if (l.Toma("COMPARING"_c)) {
            if (l.Toma("ALL"_c, "FIELDS"_c)) {
                lugar.todosComparados = true;
            } else if (!l.Toma("NO"_c, "FIELDS"_c)) {
                lugar.comparados = LeerPartes(c, l, tabla, {"INDEX"_c, "WITH"_c, "TRANSPORTING"_c, "INTO"_c, "FROM"_c});
            }
        } else {
            l.NoSePractica();
        }
    }
    const bool compara = lugar.todosComparados || !lugar.comparados.empty();
    lugar.sinTransporte = sinArea;
    if (area) {
        lugar.area = std::move(area);
    } else if (!lugar.simbolo && (!sinArea || compara)) {
        lugar.area = CabeceraDe(l, tabla);
    }
    if (!leida) leida = std::make_unique<LeidaPorArea>(CabeceraDe(l, tabla), ClaveConocida(tabla), true);
    leida->tabla = tabla;
    leida->lugar = std::move(lugar);
    c.Emitir(std::unique_ptr<Instruccion>(std::move(leida)));
    return true;
}

}  // namespace qor::abap
