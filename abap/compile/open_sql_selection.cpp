// What a SELECT does when it runs.
#include "abap/compile/open_sql_selection.h"

#include <algorithm>
#include <utility>

#include "abap/compile/all_entries.h"
#include "abap/compile/database_values.h"

namespace qor::abap {

namespace {

using SeleccionHecha = std::shared_ptr<const Seleccion>;

// Which component each column goes to. Without a structure the first column goes to the field itself.
struct Reparto {
    const Estructura* estructura = nullptr;
    std::vector<const Componente*> componentes;
};

Reparto HacerReparto(const Seleccion& s, const Estructura* estructura) {
    Reparto reparto{estructura, {}};
    if (estructura == nullptr) return reparto;
    for (std::size_t i = 0; i < s.columnas.size(); ++i) {
        const Componente* suyo = nullptr;
        if (s.correspondiente) {
            if (!s.columnas[i].nombre.empty()) suyo = estructura->Buscar(s.columnas[i].nombre);
        } else if (i < estructura->componentes.size()) {
            suyo = &estructura->componentes[i];
        }
        reparto.componentes.push_back(suyo);
    }
    return reparto;
}

void PonerEnCampo(const Seleccion& s, const Reparto& reparto, std::span<const ValorDeBase> fila, const Campo& campo) {
    if (s.todas && !s.correspondiente) {
        const auto& tabla = *s.tabla.estructura;
        if (campo.tipo == Tipo::Cadena || campo.largo < tabla.largo) {
            throw Volcado("SAPSQL_WA_TOO_SMALL", "The work area is shorter than a row of " + s.tabla.nombre);
        }
        return PonerFila(fila, tabla, campo.datos);
    }
    if (reparto.estructura == nullptr) return PonerValor(fila.front(), s.columnas.front().tipo, campo);
    const std::size_t cuantos = std::min(fila.size(), reparto.componentes.size());
    for (std::size_t i = 0; i < cuantos; ++i) {
        const auto* componente = reparto.componentes[i];
        if (componente != nullptr) PonerValor(fila[i], s.columnas[i].tipo, CampoDeComponente(*componente, campo.datos));
    }
}

// One row into the work area or the fields.
void PonerUna(Maquina& maquina, const Seleccion& s, Reparto& reparto, std::span<const ValorDeBase> fila) {
    for (std::size_t i = 0; i < s.lista.size(); ++i) PonerValor(fila[i], s.columnas[i].tipo, maquina.Destino(s.lista[i]));
    if (!s.area) return;
    const auto* estructura = maquina.EstructuraDe(*s.area);
    if (estructura != reparto.estructura || (estructura != nullptr && reparto.componentes.empty())) {
        reparto = HacerReparto(s, estructura);
    }
    PonerEnCampo(s, reparto, fila, maquina.Destino(*s.area));
}

std::unique_ptr<FilasDeBase> Abrir(Maquina& maquina, const Seleccion& s) {
    ConsultaDeBase consulta;
    consulta.tabla = s.tabla.nombre;
    consulta.columnas.reserve(s.columnas.size());
    for (const auto& columna : s.columnas) consulta.columnas.push_back(columna.pedida);
    consulta.grupo = s.grupo;
    consulta.orden = s.orden;
    consulta.distinta = s.distinta;
    consulta.delCliente = s.delCliente;
    if (s.limite) consulta.limite = maquina.Entero(*s.limite);
    if (consulta.limite < 0) throw Volcado("DBIF_RSQL_INVALID_RSQL", "UP TO n ROWS: the number is negative");
    if (s.unica) consulta.limite = 1;
    if (s.entradas) return AbrirPorEntradas(maquina, s, std::move(consulta));
    if (s.donde) consulta.donde = Evaluar(maquina, *s.donde);
    return maquina.Alrededor().base.Seleccionar(consulta);
}

void Terminar(Maquina& maquina, std::int64_t filas) {
    maquina.PonerSubrc(filas > 0 ? 0 : 4);
    maquina.PonerSY("DBCNT", filas);
}

// SINGLE, and aggregates without groups.
class SeleccionarUna : public Instruccion {
public:
    explicit SeleccionarUna(SeleccionHecha seleccion) : seleccion_(std::move(seleccion)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Seleccion& s = *seleccion_;
        std::vector<ValorDeBase> fila;
        const bool hay = Abrir(maquina, s)->Siguiente(fila);
        Reparto reparto;
        if (hay) PonerUna(maquina, s, reparto, fila);
        std::int64_t cuantas = hay ? 1 : 0;
        // What is counted alone says how many rows there are.
        if (hay && s.soloCuenta) {
            if (const auto* cuenta = std::get_if<std::int64_t>(&fila.front())) cuantas = *cuenta;
        }
        Terminar(maquina, cuantas);
        return siguiente;
    }

private:
    SeleccionHecha seleccion_;
};

class SeleccionarEnTabla : public Instruccion {
public:
    explicit SeleccionarEnTabla(SeleccionHecha seleccion) : seleccion_(std::move(seleccion)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Seleccion& s = *seleccion_;
        // The rows are found first: the condition may look at the table that is filled.
        const auto filas = Abrir(maquina, s);
        TablaInterna& tabla = maquina.Tabla(*s.enTabla);
        if (!s.agregar) tabla.Vaciar();
        const auto& suya = tabla.Linea();
        const Reparto reparto = HacerReparto(s, suya.estructura);
        std::vector<ValorDeBase> fila;
        std::int64_t cuantas = 0;
        while (filas->Siguiente(fila)) {
            tabla.Agregar();
            const Campo campo = tabla.CampoDeFila(tabla.Filas() - 1);
            PonerInicial(campo, suya.estructura);
            PonerEnCampo(s, reparto, fila, campo);
            ++cuantas;
        }
        tabla.Cambia();
        Terminar(maquina, cuantas);
        return siguiente;
    }

private:
    SeleccionHecha seleccion_;
};

// ---- SELECT as a loop ----

struct EstadoDeSelect : EstadoDeBucle {
    std::unique_ptr<FilasDeBase> filas;
    std::vector<ValorDeBase> fila;
    std::int64_t cuantas = 0;
    Reparto reparto;
};

class AbrirBucleDeSelect : public Instruccion {
public:
    AbrirBucleDeSelect(SeleccionHecha seleccion, std::uint32_t nivel) : seleccion_(std::move(seleccion)), nivel_(nivel) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto filas = Abrir(maquina, *seleccion_);
        auto& estado = maquina.Bucle<EstadoDeSelect>(nivel_);
        estado.filas = std::move(filas);
        estado.cuantas = 0;
        estado.reparto = {};
        return siguiente;
    }

private:
    SeleccionHecha seleccion_;
    std::uint32_t nivel_;
};

class PasarBucleDeSelect : public Instruccion {
public:
    PasarBucleDeSelect(SeleccionHecha seleccion, std::uint32_t nivel) : seleccion_(std::move(seleccion)), nivel_(nivel) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& estado = maquina.Bucle<EstadoDeSelect>(nivel_);
        if (!estado.filas->Siguiente(estado.fila)) {
            Terminar(maquina, estado.cuantas);
            return salida;
        }
        PonerUna(maquina, *seleccion_, estado.reparto, estado.fila);
        Terminar(maquina, ++estado.cuantas);
        return siguiente;
    }

    std::size_t salida = 0;

private:
    SeleccionHecha seleccion_;
    std::uint32_t nivel_;
};

class CerrarBucleDeSelect : public Instruccion {
public:
    explicit CerrarBucleDeSelect(std::uint32_t nivel) : nivel_(nivel) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        maquina.Bucle<EstadoDeSelect>(nivel_).filas.reset();
        return siguiente;
    }

private:
    std::uint32_t nivel_;
};

}  // namespace

void EmitirSeleccion(Compilador& c, const Palabra& palabra, Seleccion seleccion) {
    const auto hecha = std::make_shared<const Seleccion>(std::move(seleccion));
    if (hecha->enTabla) {
        c.Emitir<SeleccionarEnTabla>(hecha);
    } else if (hecha->EsDeUnaVez()) {
        c.Emitir<SeleccionarUna>(hecha);
    } else {
        const auto nivel = c.NuevoNivel();
        c.Emitir<AbrirBucleDeSelect>(hecha, nivel);
        const auto siguiente = c.Aqui();
        auto& paso = c.Emitir<PasarBucleDeSelect>(hecha, nivel);
        c.AbrirBucle(palabra, "ENDSELECT"_c, siguiente, &paso.salida, std::make_unique<CerrarBucleDeSelect>(nivel));
    }
}

}  // namespace qor::abap
