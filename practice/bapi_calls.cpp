#include "practice/bapi_calls.h"

#include "abap/values/conversion.h"
#include "practice/function_parameters.h"
#include "practice/messages.h"

namespace qor {

namespace {

constexpr std::string_view nombreDeRespuesta = "RETURN";

// Puts a message into a structure, by the names that structures of messages have, or into a field as BAPIRET2 lies in storage.
void PonerMensaje(const abap::Campo& campo, const abap::Estructura* estructura, char tipo, std::string_view clase,
                  std::string_view numero, std::string_view texto) {
    abap::PonerInicial(campo, estructura);
    const std::string tipoComoTexto(1, tipo);
    const std::string codigo = std::string(clase) + std::string(numero);
    if (!estructura) {
        std::string todo = tipoComoTexto + std::string(clase);
        todo.resize(21, ' ');
        abap::PonerTexto(todo.append(numero).append(texto), campo);
        return;
    }
    const std::pair<const char*, std::string_view> partes[] = {
        {"TYPE", tipoComoTexto}, {"ID", clase}, {"NUMBER", numero}, {"CODE", codigo}, {"MESSAGE", texto}};
    for (const auto& [nombre, valor] : partes) {
        if (const auto* componente = estructura->Buscar(nombre)) {
            abap::PonerTexto(valor, abap::CampoDeComponente(*componente, campo.datos));
        }
    }
}

const abap::Estructura* EstructuraDe(const abap::ParametroDeFuncion& parametro) {
    if (parametro.estructura) return parametro.estructura;
    return parametro.tabla ? parametro.tabla->Linea().estructura : nullptr;
}

bool EsInicialElParametro(const abap::ParametroDeFuncion& parametro) {
    return parametro.tabla ? parametro.tabla->Filas() == 0 : abap::EsInicial(parametro.campo, parametro.estructura);
}

}  // namespace

void LlamadasDeBapi::Llamar(const abap::LlamadaAFuncion& llamada) {
    const auto respuesta = Probar(llamada);
    for (const auto& parametro : llamada.importa) abap::PonerInicial(parametro.campo, parametro.estructura);
    for (const auto* parametros : {&llamada.importa, &llamada.cambia, &llamada.tablas}) {
        if (const auto* parametro = BuscarParametro(*parametros, nombreDeRespuesta)) Responder(*parametro, respuesta);
    }
    const MensajeDicho dicho{respuesta.tipo, respuesta.clase, respuesta.numero, respuesta.texto};
    const LugarDeFallo lugar{{}, {}, respuesta.malo.campo, respuesta.malo.valor};
    oyente_.Bapi({llamada, 0, respuesta.tipo != 'S', {&dicho, 1}, lugar});
}

LlamadasDeBapi::Respuesta LlamadasDeBapi::Probar(const abap::LlamadaAFuncion& llamada) {
    const auto fallar = [](char tipo, std::string texto) {
        return Respuesta{tipo, mensajes::clasePedida, mensajes::numeroPedido, std::move(texto), {}};
    };
    if (const auto falta = ParametroQueFalta(llamada); !falta.empty()) {
        return fallar('E', "Parameter " + falta + " is missing or initial");
    }
    if (listas_.HayAlguna()) {
        ValorMalo malo;
        for (const auto* parametros : {&llamada.exporta, &llamada.cambia, &llamada.tablas}) {
            for (const auto& parametro : *parametros) {
                if (ProbarValores(llamada, parametro, malo)) continue;
                const std::string variables[] = {malo.valor};
                auto respuesta = fallar('E', TextoDeMensaje(mensajes::clase, mensajes::sinEntrada, variables));
                respuesta.malo = std::move(malo);
                return respuesta;
            }
        }
    }
    if (const auto* pedido = fallos_.Pedido()) return fallar(pedido->tipo, pedido->texto);
    return {'S', mensajes::clase, mensajes::hecho, std::string(mensajes::textoHecho), {}};
}

// The first parameter of the catalogue that has to be there and is not. RETURN is what the BAPI answers with, so it may be empty.
std::string LlamadasDeBapi::ParametroQueFalta(const abap::LlamadaAFuncion& llamada) {
    for (const auto& esperado : catalogo_.Parametros(llamada.nombre)) {
        if (esperado.opcional || esperado.clase == 'E' || esperado.nombre == nombreDeRespuesta) continue;
        const auto& parametros = esperado.clase == 'T' ? llamada.tablas : llamada.exporta;
        const auto* parametro = BuscarParametro(parametros, esperado.nombre);
        if (!parametro) parametro = BuscarParametro(llamada.cambia, esperado.nombre);
        if (!parametro || EsInicialElParametro(*parametro)) return std::string(esperado.nombre);
    }
    return {};
}

bool LlamadasDeBapi::ProbarValores(const abap::LlamadaAFuncion& llamada, const abap::ParametroDeFuncion& parametro,
                                   ValorMalo& malo) {
    if (parametro.nombre == nombreDeRespuesta) return true;
    const auto& vigilados = VigiladosDe(llamada.nombre, parametro);
    if (vigilados.componentes.empty()) return true;
    bool bien = parametro.tabla || ProbarFila(vigilados, parametro.campo, malo);
    for (std::size_t i = 0; bien && parametro.tabla && i < parametro.tabla->Filas(); ++i) {
        bien = ProbarFila(vigilados, parametro.tabla->CampoDeFila(i), malo);
    }
    if (!bien) malo.campo.insert(0, parametro.nombre);
    return bien;
}

bool LlamadasDeBapi::ProbarFila(const Vigilados& vigilados, const abap::Campo& campo, ValorMalo& malo) {
    for (const auto& vigilado : vigilados.componentes) {
        const auto valor = vigilado.componente ? abap::CampoDeComponente(*vigilado.componente, campo.datos) : campo;
        if (abap::EsInicial(valor)) continue;
        auto texto = abap::TextoPlano(valor);
        if (texto == "/" || (vigilado.marca && texto == "X") || vigilado.lista->Tiene(texto)) continue;
        malo = {vigilado.componente ? "-" + vigilado.componente->nombre : std::string(), std::move(texto)};
        return false;
    }
    return true;
}

const LlamadasDeBapi::Vigilados& LlamadasDeBapi::VigiladosDe(const std::string& funcion,
                                                             const abap::ParametroDeFuncion& parametro) {
    const auto* estructura = EstructuraDe(parametro);
    const auto [lugar, nuevo] = vigilados_.try_emplace(funcion + " " + parametro.nombre);
    auto& vigilados = lugar->second;
    if (!nuevo && vigilados.estructura == estructura) return vigilados;
    vigilados = {estructura, {}};
    std::string_view tipo;
    for (const auto& conocido : catalogo_.Parametros(funcion)) {
        if (conocido.nombre == parametro.nombre) tipo = conocido.tipo;
    }
    if (!estructura) {
        const auto* lista = listas_.BuscarPorNombre(parametro.nombre);
        if (!lista && !tipo.empty()) lista = listas_.Buscar(tipo);
        if (lista) vigilados.componentes.push_back({nullptr, lista, false});
        return vigilados;
    }
    if (tipo.empty()) tipo = estructura->nombre;
    for (const auto& componente : estructura->componentes) {
        if (componente.tipo.estructura) continue;
        if (const auto* lista = ListaDe(parametro.nombre, tipo, componente.nombre)) {
            vigilados.componentes.push_back({&componente, lista, parametro.nombre.ends_with('X')});
        }
    }
    return vigilados;
}

const ListaDeValores* LlamadasDeBapi::ListaDe(std::string_view parametro, std::string_view estructura,
                                              std::string_view componente) {
    const auto conNombre = [this, componente](std::string_view delante) {
        return listas_.BuscarPorNombre(std::string(delante) + "-" + std::string(componente));
    };
    if (const auto* lista = conNombre(parametro)) return lista;
    if (const auto* lista = conNombre(estructura)) return lista;
    return listas_.BuscarPorNombre(componente);
}

void LlamadasDeBapi::Responder(const abap::ParametroDeFuncion& parametro, const Respuesta& respuesta) {
    abap::Campo campo = parametro.campo;
    if (parametro.tabla) {
        parametro.tabla->Vaciar();
        parametro.tabla->Agregar();
        campo = parametro.tabla->CampoDeFila(0);
    }
    PonerMensaje(campo, EstructuraDe(parametro), respuesta.tipo, respuesta.clase, respuesta.numero, respuesta.texto);
}

}  // namespace qor
