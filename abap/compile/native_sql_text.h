#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "abap/lexer.h"

namespace qor::abap {

// The text of an EXEC SQL in its parts.
struct TextoNativo {
    std::string texto;               // for the database: without INTO, with "?" for each host variable
    std::vector<Palabra> entradas;   // those variables, without their colons
    std::vector<Palabra> destinos;   // of INTO
    Palabra primera;                 // its first word; empty where there is none
    std::vector<Palabra> sobrantes;  // of INTO: what is no variable
    std::vector<std::string_view> comentarios;
    std::vector<std::string_view> citados;  // names between quotes, without these
};

// Comments, texts and names between quotes are not looked into. A line with an asterisk in front is a comment of the report.
TextoNativo LeerTextoNativo(const TextoAjeno& ajeno);

}  // namespace qor::abap
