#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/naming.h"
#include "sap/names.h"

// The settings file: what a user's choices are between two runs.
namespace qor {

constexpr const char* nombreDeAjustes = "Tessaline.ini";

// Looks an environment variable up; an empty text when it isn't set.
using Entorno = std::function<std::string(const char* nombre)>;

Entorno EntornoDelProceso();

// Path of the settings file: in the directory that $tessaline_ini names, when there is such a directory; else in $windir, when that
// is set; else in $XDG_CONFIG_HOME/qor-generator, by default ~/.config/qor-generator. That last directory need not exist yet.
std::filesystem::path RutaDeAjustes(const Entorno& entorno);

// The file itself: a key, "=" and a value on each line, without sections. Keys are compared cut and in upper case, values are
// held cut. A line without "=" is an entry with an empty value. Of several entries with one key the first counts.
class ArchivoINI {
public:
    // Takes the entries of a file. One that is missing gives none; so does one that can't be read, which throws FalloDeArchivo.
    void CargarINI(const std::filesystem::path& ruta);

    // The value of the first entry with the key, or an empty text.
    std::string LeerClave(std::string_view clave) const;

    // Sets an entry. A new one is added at the end; nothing happens when the value stays the same. The value is stored cut, with
    // line breaks turned into blanks, since an entry is one line.
    void EscribirClave(std::string_view clave, std::string_view valor);

    bool Modificado() const { return INIModificado_; }

    // Brings the changed entries into the file, which is read anew, and replaces it in one atomic step; the file and its directory
    // are made when they are missing. Does nothing when no entry was changed. Throws when it fails: the file is then as it was, and
    // the entries remain changed.
    void GuardarINI(const std::filesystem::path& ruta);

    // The same on texts. `TextoCambiado` keeps every line whose entry wasn't changed as it stands, drops blank lines, and puts
    // changed entries that have no line of their own behind the others. Lines end with CR LF.
    void LeerTexto(std::string_view texto);
    std::string TextoCambiado(std::string_view texto) const;

private:
    struct Entrada {
        std::string clave;  // cut, upper case
        std::string valor;  // cut
        bool cambiada = false;
    };

    std::vector<Entrada> TablaINI_;
    bool INIModificado_ = false;
};

// The addition of OPEN DATASET in the reports, as a choice.
enum class OpcionEncoding { Ninguna, Default, NonUnicode, Additional };

// The choice that an addition's text stands for, and the text of a choice; for Additional it is the user's own.
OpcionEncoding EncodingDeAdiciones(std::string_view AdicionesDataset);
std::string AdicionesDeEncoding(OpcionEncoding opcion, std::string_view EncodingAdditional);

// The settings by name. Paths outside windows-1252 live as long as the program; the file can't hold them.
struct AjustesDelPrograma {
    std::filesystem::path directorioDelPrograma;  // where the defaults of the paths lie; not a setting itself
    std::string IdiomaActual;                     // empty until the user has chosen
    std::filesystem::path ArchivoAnchos;
    std::filesystem::path ArchivoBAPI;
    std::filesystem::path DirectorioDocumentos;
    std::string EditorDeTextos;  // command that opens reports; empty for a known editor
    bool LogonAlInicio = true;
    bool ChequearErroresLogon = true;
    bool ImportarSHDBLogon = true;
    bool MostrarHallazgos = true;  // the pane of findings follows the specification
    Preferencias preferencias;
    // Read only: they are set by editing the file.
    NombresRFC nombresRFC;
    std::string BibliotecaRFC;       // path of libsapnwrfc.so; empty for the loader's search
    int SegundosDeLlamadaRFC = 600;  // time limit of a remote call; 0 for none
};

// Every setting with its value or its default. The BAPI catalogue and the documents are looked for in the program's directory
// (that of the data files) when no setting says otherwise.
AjustesDelPrograma LeerAjustes(const ArchivoINI& ini, const std::filesystem::path& directorioDelPrograma);

// Whether the user has chosen a directory for the documents, or one was opened.
bool HayDirectorioElegido(const AjustesDelPrograma& ajustes);

// Puts the settings into the entries. A path that is its default has no entry, or one without a value: the default moves with the
// program.
void GuardarAjustes(ArchivoINI& ini, const AjustesDelPrograma& ajustes);

}  // namespace qor
