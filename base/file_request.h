#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// What a file dialog is asked for, and the rule of where it begins.
namespace qor {

// The dialogs of one kind begin where the last file of that kind was.
enum class ClaseDeArchivo {
    Documento,
    Programa,
    Entrada,
    Grabacion,
    JuegoDeDatos,
    RegistrosFallados,
    Diario,
    PDF,
    ListaDeValores,
    Catalogo,
    AnchosDeCampos,
    EditorDeTextos,
    CarpetaDeDocumentos
};

// A name of the kind for files that remember it; it never changes.
const char* NombreDeClase(ClaseDeArchivo clase);

constexpr const char* todosLosArchivos = "*.*|*";

struct PedidoDeArchivo {
    ClaseDeArchivo clase;
    std::string filtro = todosLosArchivos;  // such as "QOR format|*.qor"; a new file gets the first extension
    std::filesystem::path presente = {};    // what is chosen now, a path
    std::filesystem::path sugerido = {};    // the name of a new file, without a directory
    bool preguntaDespues = false;           // what is there already is asked about when the file is written, and not now
};

// The directories that a program knows. Any of them may be empty, or be there no more.
struct LugaresDeDialogo {
    std::filesystem::path ultimo;        // of the last file of the kind
    std::filesystem::path delDocumento;  // of the open document
    std::filesystem::path delUsuario;    // of the user's documents
};

// Where the dialog begins: in the directory of what is chosen now, else in the first of the known ones that is there. Behind it
// stands the name of what is chosen, or the suggested one.
std::filesystem::path ComienzoDelDialogo(const PedidoDeArchivo& pedido, const LugaresDeDialogo& lugares);

// A text as the name of a new file, without what file systems don't take, and an ending such as ".pdf" behind it; empty where
// nothing is left of the text.
std::filesystem::path ComoNombreDeArchivo(std::string_view texto, std::string_view final = {});

}  // namespace qor
