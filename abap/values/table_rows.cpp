#include "abap/values/table_rows.h"

#include <algorithm>
#include <cstring>

#include "abap/values/comparison.h"
#include "abap/values/conversion.h"

namespace qor::abap {

namespace {

bool EsNumerico(Tipo tipo) { return tipo == Tipo::I || tipo == Tipo::P || tipo == Tipo::F; }

// The elementary components, those of structures within it too.
void AgregarElementales(const TipoDeCampo& linea, std::uint32_t desde, bool numericos, std::vector<Componente>& componentes) {
    for (const auto& componente : linea.estructura->componentes) {
        const auto lugar = desde + componente.desplazamiento;
        if (componente.tipo.tipo == Tipo::Estructura && componente.tipo.estructura != nullptr) {
            AgregarElementales(componente.tipo, lugar, numericos, componentes);
        } else if (EsNumerico(componente.tipo.tipo) == numericos) {
            componentes.push_back(componente);
            componentes.back().desplazamiento = lugar;
        }
    }
}

bool TieneComponentes(const TipoDeCampo& linea) { return linea.tipo == Tipo::Estructura && linea.estructura != nullptr; }

// Whether COLLECT leaves it as it is.
bool SeIndizaSiempre(Tipo tipo) { return !EsNumerico(tipo) && tipo != Tipo::Estructura; }

bool SeComparaPorBytes(Tipo tipo) { return !EsNumerico(tipo) && tipo != Tipo::Cadena; }

}  // namespace

Componente LineaEntera(const TipoDeCampo& linea) { return {"", 0, linea}; }

std::vector<Componente> ClaveEstandar(const TipoDeCampo& linea) {
    if (!TieneComponentes(linea)) return {LineaEntera(linea)};
    std::vector<Componente> componentes;
    AgregarElementales(linea, 0, false, componentes);
    return componentes;
}

std::vector<Componente> ComponentesNumericos(const TipoDeCampo& linea) {
    std::vector<Componente> componentes;
    if (TieneComponentes(linea)) {
        AgregarElementales(linea, 0, true, componentes);
    } else if (EsNumerico(linea.tipo)) {
        componentes.push_back(LineaEntera(linea));
    }
    return componentes;
}

Campo CampoDeFila(const TablaInterna& tabla, const Componente& componente, std::size_t fila) {
    if (componente.tipo.tipo == Tipo::Cadena) return tabla.CampoDeFila(fila);
    return CampoDeComponente(componente, tabla.Fila(fila));
}

void BorrarFilas(TablaInterna& tabla, const std::vector<bool>& marcas) {
    const auto cuantas = static_cast<std::size_t>(std::count(marcas.begin(), marcas.end(), true));
    if (cuantas == 0) return;
    if (tabla.SusPasadas().HayAbiertas()) {
        for (std::size_t i = marcas.size(); i-- > 0;) {
            if (marcas[i]) tabla.SusPasadas().Borra(i);
        }
    }
    // They are put behind the others, where taking them out moves no other row.
    const auto filas = tabla.Orden();
    std::vector<std::uint8_t*> borradas;
    borradas.reserve(cuantas);
    std::size_t quedan = 0;
    for (std::size_t i = 0; i < filas.size(); ++i) {
        if (marcas[i]) {
            borradas.push_back(filas[i]);
        } else {
            filas[quedan++] = filas[i];
        }
    }
    std::copy(borradas.begin(), borradas.end(), filas.begin() + static_cast<std::ptrdiff_t>(quedan));
    tabla.Cambia();
    for (std::size_t i = 0; i < cuantas; ++i) tabla.Borrar(tabla.Filas() - 1);
}

void PonerInicial(const TablaInterna& tabla, std::size_t fila) { PonerInicial(tabla.CampoDeFila(fila), tabla.Linea().estructura); }

void CopiarTabla(const TablaInterna& origen, TablaInterna& destino) {
    if (&origen == &destino) return;
    destino.Vaciar();
    for (std::size_t i = 0; i < origen.Filas(); ++i) {
        destino.Agregar();
        Mover(origen.CampoDeFila(i), destino.CampoDeFila(i));
    }
}

std::size_t BuscarFila(TablaInterna& tabla, std::span<const Igualdad> igualdades, std::size_t desde) {
    const bool segura = !tabla.HaySimbolos() &&
                        !(tabla.HaySumas() && std::any_of(igualdades.begin(), igualdades.end(), [](const Igualdad& igualdad) {
                              return !SeIndizaSiempre(igualdad.componente.tipo.tipo);
                          }));
    if (segura) return tabla.BuscarIguales(igualdades, desde);
    for (; desde < tabla.Filas(); ++desde) {
        if (std::all_of(igualdades.begin(), igualdades.end(), [&](const Igualdad& igualdad) {
                return Comparar(CampoDeFila(tabla, igualdad.componente, desde), igualdad.valor) == 0;
            })) {
            return desde;
        }
    }
    return tabla.Filas();
}

bool TieneLosMismos(std::span<const Componente> componentes, const Campo& a, const Campo& b) {
    if (a.tipo == Tipo::Cadena || b.tipo == Tipo::Cadena) return Comparar(a, b) == 0;
    return std::all_of(componentes.begin(), componentes.end(), [&](const Componente& componente) {
        const std::size_t fin = componente.desplazamiento + componente.tipo.largo;
        if (fin > a.largo || fin > b.largo) return false;
        return Comparar(CampoDeComponente(componente, a.datos), CampoDeComponente(componente, b.datos)) == 0;
    });
}

void MoverLinea(std::span<const Componente> componentes, const Campo& origen, const Campo& destino) {
    if (componentes.empty() || origen.tipo == Tipo::Cadena || destino.tipo == Tipo::Cadena) {
        Mover(origen, destino);
        return;
    }
    for (const auto& componente : componentes) {
        const std::size_t fin = componente.desplazamiento + componente.tipo.largo;
        if (fin > origen.largo || fin > destino.largo) continue;
        Mover(CampoDeComponente(componente, origen.datos), CampoDeComponente(componente, destino.datos));
    }
}

void Ordenar(TablaInterna& tabla, std::span<const ClaveDeOrden> claves) {
    if (claves.empty()) return;
    const bool deCadenas = tabla.Linea().tipo == Tipo::Cadena;
    const auto comparar = [deCadenas](const Componente& componente, std::uint8_t* a, std::uint8_t* b) {
        if (deCadenas) return reinterpret_cast<std::string*>(a)->compare(*reinterpret_cast<std::string*>(b));
        if (SeComparaPorBytes(componente.tipo.tipo))
            return std::memcmp(a + componente.desplazamiento, b + componente.desplazamiento, componente.tipo.largo);
        return Comparar(CampoDeComponente(componente, a), CampoDeComponente(componente, b));
    };
    const auto filas = tabla.Orden();
    std::stable_sort(filas.begin(), filas.end(), [&](std::uint8_t* a, std::uint8_t* b) {
        for (const auto& clave : claves) {
            const int signo = comparar(clave.componente, a, b);
            if (signo != 0) return clave.descendente ? signo > 0 : signo < 0;
        }
        return false;
    });
    tabla.Cambia();
}

}  // namespace qor::abap
