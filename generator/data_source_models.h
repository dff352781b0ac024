#pragma once

#include <string>
#include <vector>

#include "generator/request.h"

// Code models for a user's own data source: ready pieces of ABAP, appended to its texts, for one of the report's internal tables.
namespace qor {

// The declarations of all record tables as text, with CR LF, and the names of the tables. The text is empty when the specification
// was refused; the view has shown why.
struct Estructuras {
    std::string texto;
    std::vector<std::string> tablas;
};

Estructuras ImprimirEstructuras(const PedidoDeGeneracion& pedido);

// The kind of source that a model reads. Ninguna: the choice was closed without an answer.
enum class FuenteDeModelo { Ninguna, ClientFlat, ClientTab, Server };

// The texts of the data source, as the models change them.
struct TextosDeOrigen {
    std::string& Variables;
    std::string& Forms;
    std::string& Source;
};

TextosDeOrigen TextosDe(Especificacion& especificacion);

// Each appends its model for the table `itab`. False when nothing was changed; the view has shown why.
bool ModeloArchivo(const PedidoDeGeneracion& pedido, TextosDeOrigen textos, const std::string& itab, FuenteDeModelo fuente);
bool ModeloOpenSQL(const PedidoDeGeneracion& pedido, TextosDeOrigen textos, const std::string& itab,
                   const std::string& declaraciones);
bool ModeloSQLNativo(const PedidoDeGeneracion& pedido, TextosDeOrigen textos, const std::string& itab,
                     const std::string& declaraciones);

// Empties the texts for each "1" in `eleccion`, three characters for variables, forms and source in this order.
void EliminarTextos(TextosDeOrigen textos, const std::string& eleccion);

}  // namespace qor
