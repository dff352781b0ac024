#include "print/page.h"

#include <string>

namespace qor {

namespace {

constexpr const char* titulo = "Qor Generator - Batch Input & BAPI-based Interface Generator";
constexpr int origenDePagina = 600;
constexpr int finDePagina = 15140;
constexpr int columnaDeNumero = 140;

void PonerLetraDeCabeza(Dispositivo& d) { d.PonerLetra({"Arial", 7, true}); }

}  // namespace

void ConfigurarImpresora(Dispositivo& d) {
    PonerLetraDeCabeza(d);
    d.PonerOrigenIzquierdo(origenDePagina);
    LineasVacias(d, 2);
    Linea(d, titulo);
    PonerTamano(d, 10);
    LineasVacias(d, 3);
}

void ControlarPagina(Dispositivo& d, const TextosIdioma& textos) {
    if (d.PosicionVertical() > finDePagina) PasarPagina(d, textos);
}

void PasarPagina(Dispositivo& d, const TextosIdioma& textos) {
    const auto letra = d.LetraActual();
    const int origen = d.OrigenIzquierdo();
    d.NuevaPagina();
    d.PonerOrigenIzquierdo(origenDePagina);
    PonerLetraDeCabeza(d);
    LineasVacias(d, 2);
    d.Item(titulo);
    d.Tab(columnaDeNumero);
    Linea(d, textos.Texto(920) + " " + std::to_string(d.NumeroDePagina()));
    LineasVacias(d, 3);
    d.PonerLetra(letra);
    d.PonerOrigenIzquierdo(origen);
}

void SPrint(Dispositivo& d, const TextosIdioma& textos, std::string_view texto, std::size_t ancho) {
    for (;;) {
        ControlarPagina(d, textos);
        const auto retorno = texto.substr(0, ancho).find('\r');
        const auto corte = retorno != std::string_view::npos ? retorno : ancho;
        Linea(d, texto.substr(0, corte));
        if (texto.size() <= corte) return;
        texto.remove_prefix(corte);
        if (retorno == std::string_view::npos) continue;
        texto.remove_prefix(1);
        if (texto.starts_with('\n')) texto.remove_prefix(1);
    }
}

void Linea(Dispositivo& d, std::string_view texto) {
    d.Item(texto);
    d.FinDeLinea();
}

void LineasVacias(Dispositivo& d, int cantidad) {
    for (; cantidad > 0; --cantidad) d.FinDeLinea();
}

void PonerTamano(Dispositivo& d, int tamano) {
    auto letra = d.LetraActual();
    letra.tamano = tamano;
    d.PonerLetra(letra);
}

void PonerNegrita(Dispositivo& d, bool negrita) {
    auto letra = d.LetraActual();
    letra.negrita = negrita;
    d.PonerLetra(letra);
}

void Encabezado(Dispositivo& d, std::string_view texto) {
    d.PonerEnfasis(Enfasis::Titulo, true);
    Linea(d, texto);
    d.PonerEnfasis(Enfasis::Titulo, false);
}

void LineaSeparadora(Dispositivo& d, std::size_t largo) { Linea(d, std::string(largo, '_')); }

}  // namespace qor
