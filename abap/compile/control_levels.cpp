// AT NEW and its kin within a loop over an internal table.
#include <algorithm>
#include <cstring>

#include "abap/compile/table_loop.h"
#include "abap/values/conversion.h"
#include "abap/values/number.h"
#include "abap/values/table_rows.h"

namespace qor::abap {

namespace {

enum class Nivel : std::uint8_t { First, New, EndOf, Last };

bool EsDeCaracteres(Tipo tipo) { return tipo == Tipo::C || tipo == Tipo::N || tipo == Tipo::D || tipo == Tipo::T; }

// Behind the components of the level nothing of a row is left: stars, and zeros in numbers.
void Tapar(const Campo& area, const TipoDeCampo& linea, std::uint32_t desde, std::uint32_t sumado = 0) {
    if (linea.estructura == nullptr) {
        if (sumado < desde) return;
        const Campo campo = CampoDeComponente({"", sumado, linea, false}, area.datos);
        if (EsDeCaracteres(linea.tipo)) {
            std::memset(campo.datos, '*', campo.largo);
        } else {
            PonerInicial(campo, nullptr);
        }
        return;
    }
    for (const auto& componente : linea.estructura->componentes) {
        Tapar(area, componente.tipo, desde, sumado + componente.desplazamiento);
    }
}

class PrincipioDeNivel : public Instruccion {
public:
    PrincipioDeNivel(std::shared_ptr<const Recorrido> recorrido, Nivel nivel, std::uint32_t largo)
        : recorrido_(std::move(recorrido)), nivel_(nivel), largo_(largo) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& estado = maquina.Bucle<EstadoDeRecorrido>(recorrido_->nivel);
        auto& tabla = maquina.Tabla(recorrido_->tabla);
        estado.enNivel = Cambia(estado, tabla);
        if (!estado.enNivel) return destino;
        estado.largoDeNivel = largo_;
        if (!recorrido_->area) return siguiente;
        const Campo area = maquina.Destino(*recorrido_->area);
        if (area.tipo != Tipo::Cadena && area.largo >= tabla.Linea().largo) Tapar(area, tabla.Linea(), largo_);
        return siguiente;
    }

    std::size_t destino = finDeRutina;

private:
    bool Cambia(const EstadoDeRecorrido& estado, TablaInterna& tabla) const {
        if (nivel_ == Nivel::First || nivel_ == Nivel::New) {
            return estado.primera || (nivel_ == Nivel::New && !SonIguales(estado.actual, estado.anterior.data()));
        }
        const auto otra = estado.BuscarSiguiente(*recorrido_, tabla);
        return otra == tabla.Filas() || (nivel_ == Nivel::EndOf && !SonIguales(estado.actual, tabla.Fila(otra)));
    }

    bool SonIguales(const std::vector<std::uint8_t>& fila, const std::uint8_t* otra) const {
        return std::memcmp(fila.data(), otra, largo_) == 0;
    }

    std::shared_ptr<const Recorrido> recorrido_;
    Nivel nivel_;
    std::uint32_t largo_;
};

// ENDAT: the area has the row again.
class FinDeNivel : public Instruccion {
public:
    explicit FinDeNivel(std::shared_ptr<const Recorrido> recorrido) : recorrido_(std::move(recorrido)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& estado = maquina.Bucle<EstadoDeRecorrido>(recorrido_->nivel);
        if (!estado.enNivel) return siguiente;
        estado.enNivel = false;
        if (!recorrido_->area) return siguiente;
        const Componente fila = LineaEntera(maquina.Tabla(recorrido_->tabla).Linea());
        Mover(CampoDeComponente(fila, estado.actual.data()), maquina.Destino(*recorrido_->area));
        return siguiente;
    }

private:
    std::shared_ptr<const Recorrido> recorrido_;
};

// SUM: the numbers of all rows of the level that is open.
class SumaDeNivel : public Instruccion {
public:
    explicit SumaDeNivel(std::shared_ptr<const Recorrido> recorrido) : recorrido_(std::move(recorrido)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const auto& estado = maquina.Bucle<EstadoDeRecorrido>(recorrido_->nivel);
        const auto& tabla = maquina.Tabla(recorrido_->tabla);
        const Campo area = maquina.Destino(*recorrido_->area);
        const auto numeros = ComponentesNumericos(tabla.Linea());
        if (!estado.enNivel || area.largo < tabla.Linea().largo) return siguiente;
        for (const auto& numero : numeros) PonerInicial(CampoDeComponente(numero, area.datos), nullptr);
        const auto actual = std::min(estado.pasada.siguiente, tabla.Filas());
        auto desde = actual;
        auto hasta = actual;
        while (desde > estado.desde && EsDelNivel(estado, tabla, desde - 1)) --desde;
        while (hasta < std::min(estado.hasta, tabla.Filas()) && EsDelNivel(estado, tabla, hasta)) ++hasta;
        for (; desde < hasta; ++desde) {
            if (recorrido_->condicion && !recorrido_->condicion->Cumple(tabla, estado.valores, desde)) continue;
            for (const auto& numero : numeros) {
                const Campo suma = CampoDeComponente(numero, area.datos);
                const Calculo calculo = CalculoDe(suma);
                const auto mas = LeerNumero(CampoDeComponente(numero, tabla.Fila(desde)), calculo);
                PonerNumero(Calcular('+', LeerNumero(suma, calculo), mas), suma);
            }
        }
        return siguiente;
    }

private:
    static bool EsDelNivel(const EstadoDeRecorrido& estado, const TablaInterna& tabla, std::size_t fila) {
        return std::memcmp(tabla.Fila(fila), estado.actual.data(), estado.largoDeNivel) == 0;
    }

    std::shared_ptr<const Recorrido> recorrido_;
};

}  // namespace

bool CompilarAT(Compilador& c, Lectura& l) {
    BloqueAbierto* bucle = c.BucleDe("ENDLOOP"_c);
    if (bucle == nullptr || bucle->recorrido == nullptr) l.Fallar("AT NEW and its kin stand in a LOOP AT");
    auto& recorrido = *bucle->recorrido;
    Nivel nivel = Nivel::First;
    std::uint32_t largo = 0;
    const auto leerComponente = [&] {
        const auto componente = LeerParte(c, l, recorrido.tabla);
        largo = componente.desplazamiento + componente.tipo.largo;
    };
    if (l.Toma("NEW"_c)) {
        nivel = Nivel::New;
        leerComponente();
    } else if (l.Toma("END"_c, "OF"_c)) {
        nivel = Nivel::EndOf;
        leerComponente();
    } else if (l.Toma("LAST"_c)) {
        nivel = Nivel::Last;
    } else if (!l.Toma("FIRST"_c)) {
        return false;
    }
    l.Fin();
    recorrido.conNiveles = true;
    auto& principio = c.Emitir<PrincipioDeNivel>(bucle->recorrido, nivel, largo);
    const auto suyo = bucle->recorrido;
    c.AbrirBloque(l.Primera(), "ENDAT"_c, &principio.destino).ultima = std::make_unique<FinDeNivel>(suyo);
    return true;
}

void CompilarSUM(Compilador& c, Lectura& l) {
    l.Fin();
    const BloqueAbierto* bucle = c.BucleDe("ENDLOOP"_c);
    if (bucle == nullptr || bucle->recorrido == nullptr || !bucle->recorrido->conNiveles)
        l.Fallar("SUM stands between AT and ENDAT");
    if (!bucle->recorrido->area || bucle->recorrido->tabla.dinamica) l.Fallar("SUM wants a loop with a work area of a known type");
    c.Emitir<SumaDeNivel>(bucle->recorrido);
}

}  // namespace qor::abap
