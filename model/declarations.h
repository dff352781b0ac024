#pragma once

#include <string>
#include <string_view>
#include <vector>

// What the declarations of a specification (VariablesGlobales) hold. ABAP doesn't tell case apart, and neither do these questions.
namespace qor {

// The name occurs anywhere in the declarations: all that the use of a variable asks for.
bool Menciona(std::string_view declaraciones, std::string_view nombre);

// The name stands in front of ".", a blank or "(": a typed variable needs no parameter of its own.
bool EstaDefinido(std::string_view declaraciones, std::string_view nombre);

// The name stands behind a blank, and in front of ",", ".", "(" or a blank: the parameter of a BAPI has its variable.
bool EstaDeclarado(std::string_view declaraciones, std::string_view nombre);

// A statement "DATA: <name>" is there.
bool HayData(std::string_view declaraciones, std::string_view nombre);

// "DATA: <name> LIKE <type>" is there, in front of one of the endings.
bool HayDataConTipo(std::string_view declaraciones, std::string_view nombre, std::string_view tipo,
                    std::initializer_list<std::string_view> finales);

// The type of a declared variable: what stands behind "DATA: <name> LIKE " on one of the lines, without the final "," or ".". Empty
// when there is no such line.
std::string BuscarTipoVariable(const std::vector<std::string>& lineas, std::string_view nombre);

}  // namespace qor
