#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "abap/surroundings.h"

namespace qor {

// Writes JSON behind a text, without blanks: what the journal holds for each of a million transactions. Texts come in windows-1252
// and go out as UTF-8; all control characters as \u00xx.
class EscritorJson {
public:
    explicit EscritorJson(std::string& salida) : salida_(salida) {}

    // Objects and lists. The comma in front of what follows another member or element comes by itself.
    EscritorJson& Abrir(char signo);  // { or [
    EscritorJson& Cerrar(char signo);
    EscritorJson& Clave(std::string_view nombre);

    EscritorJson& Texto(std::string_view texto);  // without the blanks behind it
    EscritorJson& Entero(std::int64_t numero);

    // The value of a field: a structure is an object without its initial components; I, P and F are numbers; N, D and T have all
    // their digits, X all its hexadecimal ones.
    EscritorJson& Valor(const abap::Campo& campo, const abap::Estructura* estructura);
    EscritorJson& Tabla(const abap::TablaInterna& tabla);  // its rows
    // A row of the database, as an object without its initial columns.
    EscritorJson& Fila(const abap::Estructura& tabla, std::span<const abap::ValorDeBase> fila);

private:
    void Separar();
    void Entrecomillar(std::string_view texto);
    void Crudo(std::string_view texto);

    std::string& salida_;
    bool detras_ = false;  // of a member or an element
};

}  // namespace qor
