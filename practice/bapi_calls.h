#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "abap/surroundings.h"
#include "practice/catalogue.h"
#include "practice/events.h"
#include "practice/value_lists.h"

namespace qor {

// BAPIs that are practised: nothing is posted, but what the call hands over is looked at and goes to the listener. What it imports
// is cleared, and RETURN, a field, a structure or a table, gets one message: success, or the first of these that is the case. A
// parameter that is mandatory in the catalogue is missing or initial; a value is not in its value list; the record was asked to
// fail.
class LlamadasDeBapi {
public:
    LlamadasDeBapi(CatalogoDePractica& catalogo, ListasDeValores& listas, const FallosPedidos& fallos, OyenteDePractica& oyente)
        : catalogo_(catalogo), listas_(listas), fallos_(fallos), oyente_(oyente) {}

    void Llamar(const abap::LlamadaAFuncion& llamada);

private:
    // A value that is not in its list, and where it stands: PARAMETER, or PARAMETER-COMPONENT.
    struct ValorMalo {
        std::string campo;
        std::string valor;
    };
    struct Respuesta {
        char tipo = 'S';
        std::string_view clase;
        std::string_view numero;
        std::string texto;
        ValorMalo malo{};
    };
    // A component that has a value list, of a structure that the lists were looked up for.
    struct Vigilado {
        const abap::Componente* componente = nullptr;  // null: the field itself
        const ListaDeValores* lista = nullptr;
        bool marca = false;  // of a structure that marks the fields to take over: "X" is no value
    };
    struct Vigilados {
        const abap::Estructura* estructura = nullptr;
        std::vector<Vigilado> componentes;
    };

    Respuesta Probar(const abap::LlamadaAFuncion& llamada);
    std::string ParametroQueFalta(const abap::LlamadaAFuncion& llamada);
    bool ProbarValores(const abap::LlamadaAFuncion& llamada, const abap::ParametroDeFuncion& parametro, ValorMalo& malo);
    const Vigilados& VigiladosDe(const std::string& funcion, const abap::ParametroDeFuncion& parametro);
    const ListaDeValores* ListaDe(std::string_view parametro, std::string_view estructura, std::string_view componente);
    static bool ProbarFila(const Vigilados& vigilados, const abap::Campo& campo, ValorMalo& malo);
    static void Responder(const abap::ParametroDeFuncion& parametro, const Respuesta& respuesta);

    CatalogoDePractica& catalogo_;
    ListasDeValores& listas_;
    const FallosPedidos& fallos_;
    OyenteDePractica& oyente_;
    std::unordered_map<std::string, Vigilados> vigilados_;  // by function and parameter
};

}  // namespace qor
