#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "app/arguments.h"
#include "app/console_view.h"
#include "app/settings.h"
#include "base/messages.h"
#include "base/view.h"
#include "generator/request.h"
#include "model/document.h"
#include "model/first_lines.h"

// The commands of qorgen. Each group of them registers its arguments with the parser; when one is parsed, it leaves what is to be
// done in `comando`.
namespace qor {

// What every command works with. Paths and texts are windows-1252.
struct ContextoDeComando {
    const TextosIdioma& textos;
    const AjustesDelPrograma& ajustes;
    std::filesystem::path directorioDeDatos;
    VistaDeConsola& vista;
    std::ostream& salida;
    std::ostream& errores;
    std::filesystem::path directorioDeAjustes;
};

// Answers whether it did its work; the view has shown why not.
using Comando = std::function<bool(const ContextoDeComando&)>;

struct Ordenes {
    Orden raiz;
    Comando& comando;
};

// The work of a command that has been read, on the arguments that it has registered.
template <typename Argumentos, typename Accion>
void AlLeer(const Orden& orden, const Ordenes& ordenes, const std::shared_ptr<Argumentos>& argumentos, Accion accion) {
    orden.AlElegir([argumentos, accion, &comando = ordenes.comando] {
        comando = [argumentos, accion](const ContextoDeComando& contexto) { return accion(contexto, *argumentos); };
    });
}

void AgregarComandosDeDocumento(Ordenes ordenes);  // generate, check, convert, source, print
void AgregarComandosDeBAPI(Ordenes ordenes);       // bapi list, find, show, insert, update
void AgregarComandosDeDatos(Ordenes ordenes);      // dataset
void AgregarComandosDeSAP(Ordenes ordenes);        // import, widths, publish

// The names by which a table of choices is asked.
template <typename Tabla>
std::vector<std::string> Nombres(const Tabla& tabla) {
    std::vector<std::string> nombres;
    for (const auto& [nombre, valor] : tabla) nombres.emplace_back(nombre);
    return nombres;
}

// An argument as a text of the model. Throws FalloDeEjecucion when the code page can't hold it.
std::string DeArgumento(const std::string& argumento);

// The document that a command works on, with the lines that a screen would show first.
struct DocumentoDeComando {
    Documento documento;
    PrimerasLineas lineas;

    // Opens a document as the desktop does.
    bool Abrir(const ContextoDeComando& contexto, const std::filesystem::path& ruta);
    bool Guardar(const ContextoDeComando& contexto);
    PedidoDeGeneracion Pedido(const ContextoDeComando& contexto);
};

}  // namespace qor
