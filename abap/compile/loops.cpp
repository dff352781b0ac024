// LOOP AT.
#include <algorithm>
#include <limits>

#include "abap/compile/table_loop.h"
#include "abap/values/conversion.h"
#include "abap/values/table_rows.h"

namespace qor::abap {

std::size_t EstadoDeRecorrido::BuscarSiguiente(const Recorrido& recorrido, TablaInterna& tabla) const {
    const auto fin = std::min(hasta, tabla.Filas());
    auto fila = pasada.siguiente;
    if (fila < fin && recorrido.condicion) fila = recorrido.condicion->Buscar(tabla, valores, fila);
    return fila < fin ? fila : tabla.Filas();
}

namespace {

class PrincipioDeRecorrido : public Instruccion {
public:
    explicit PrincipioDeRecorrido(std::shared_ptr<const Recorrido> recorrido) : recorrido_(std::move(recorrido)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Recorrido& suyo = *recorrido_;
        auto& estado = maquina.Bucle<EstadoDeRecorrido>(suyo.nivel);
        auto& tabla = maquina.Tabla(suyo.tabla);
        const auto [desde, hasta] = suyo.tramo.En(maquina, std::numeric_limits<std::size_t>::max(), false);
        tabla.SusPasadas().Empezar(estado.pasada, desde);
        estado.desde = desde;
        estado.hasta = hasta;
        estado.tabixDeAntes = maquina.Tabix();
        estado.alguna = false;
        if (suyo.condicion) suyo.condicion->Tomar(maquina, estado.valores);
        return siguiente;
    }

private:
    std::shared_ptr<const Recorrido> recorrido_;
};

class PaseDeRecorrido : public Instruccion {
public:
    explicit PaseDeRecorrido(std::shared_ptr<const Recorrido> recorrido) : recorrido_(std::move(recorrido)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Recorrido& suyo = *recorrido_;
        auto& estado = maquina.Bucle<EstadoDeRecorrido>(suyo.nivel);
        auto& tabla = maquina.Tabla(suyo.tabla);
        std::size_t fila = 0;
        do {
            fila = estado.BuscarSiguiente(suyo, tabla);
            if (fila == tabla.Filas()) return destino;
            estado.pasada.siguiente = fila + 1;
            if (tabla.Vigilada()) tabla.Encontrar(fila);
        } while (suyo.principal && !maquina.EmpezarRegistro(fila + 1, tabla.Filas()));
        maquina.MostrarFila(fila);
        if (suyo.conNiveles) PrepararNiveles(estado, tabla, fila);
        estado.alguna = true;
        maquina.PonerTabix(fila + 1);
        if (suyo.area) {
            Mover(tabla.CampoDeFila(fila), maquina.Destino(*suyo.area));
        } else if (suyo.simbolo) {
            Apuntar(maquina, *suyo.simbolo, tabla, fila);
        }
        return siguiente;
    }

    std::size_t destino = finDeRutina;

private:
    static void PrepararNiveles(EstadoDeRecorrido& estado, const TablaInterna& tabla, std::size_t fila) {
        estado.primera = !estado.alguna;
        estado.enNivel = false;
        estado.anterior.swap(estado.actual);
        const auto* bytes = tabla.Fila(fila);
        estado.actual.assign(bytes, bytes + tabla.Linea().largo);
    }

    std::shared_ptr<const Recorrido> recorrido_;
};

// Behind the loop, however it was left.
class FinDeRecorrido : public Instruccion {
public:
    explicit FinDeRecorrido(std::shared_ptr<const Recorrido> recorrido) : recorrido_(std::move(recorrido)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& estado = maquina.Bucle<EstadoDeRecorrido>(recorrido_->nivel);
        estado.pasada.Terminar();
        maquina.PonerTabix(estado.tabixDeAntes);
        maquina.PonerSubrc(estado.alguna ? 0 : 4);
        if (recorrido_->principal) maquina.TerminarRegistros();
        return siguiente;
    }

private:
    std::shared_ptr<const Recorrido> recorrido_;
};

}  // namespace

void CompilarLOOP(Compilador& c, Lectura& l) {
    l.Exige("AT"_c, "AT");
    auto recorrido = std::make_shared<Recorrido>();
    const Palabra nombre = l.Actual();
    recorrido->tabla = c.LeerTabla(l);
    bool sinArea = false;
    while (l.Hay()) {
        if (l.Toma("INTO"_c)) {
            recorrido->area = c.LeerDestino(l);
        } else if (l.Toma("ASSIGNING"_c)) {
            recorrido->simbolo = LeerSimbolo(c, l);
        } else if (l.Toma("TRANSPORTING"_c)) {
            if (!l.Toma("NO"_c, "FIELDS"_c)) l.Fallar("NO FIELDS was expected");
            sinArea = true;
        } else if (l.Toma("FROM"_c)) {
            recorrido->tramo.desde = c.LeerOperando(l);
        } else if (l.Toma("TO"_c)) {
            recorrido->tramo.hasta = c.LeerOperando(l);
        } else if (!recorrido->condicion && l.Toma("WHERE"_c)) {
            recorrido->condicion = CondicionDeFilas::Leer(c, l, recorrido->tabla);
        } else {
            l.NoSePractica();
        }
    }
    if (!sinArea && !recorrido->area && !recorrido->simbolo) recorrido->area = CabeceraDe(l, recorrido->tabla);
    const auto referencia = LeerReferencia(nombre);
    recorrido->principal = c.EnInicio() && !c.EnBuclePrincipal() && referencia && c.EsTablaPrincipal(referencia->nombre);
    if (recorrido->principal) c.HayBuclePrincipal();
    recorrido->nivel = c.NuevoNivel();
    c.Emitir<PrincipioDeRecorrido>(recorrido);
    const std::size_t siguiente = c.Aqui();
    auto& pase = c.Emitir<PaseDeRecorrido>(recorrido);
    auto& bloque = c.AbrirBucle(l.Primera(), "ENDLOOP"_c, siguiente, &pase.destino, std::make_unique<FinDeRecorrido>(recorrido));
    bloque.recorrido = recorrido;
    bloque.principal = recorrido->principal;
}

}  // namespace qor::abap
