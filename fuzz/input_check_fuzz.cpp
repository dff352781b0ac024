// Any bytes as an input file, read in one of several layouts, and as kinds of fields: each line is read once, findings lie where
// the file has lines, and kinds that were read come back.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "fuzz/memory_file.h"
#include "fuzz/require.h"
#include "input/check.h"

namespace {

using namespace qor;

// Orders with items, both with a field of each kind: several files and one, by keys and by position; orders alone with tabs.
DisenoDeEntrada Diseno(bool unico, bool conClave, bool tabuladores) {
    Especificacion e;
    e.TablaArchivo[0] = {"KEY", "3", "", ""};
    e.TablaArchivo[1] = {"DATE", "8", "", ""};
    e.TablaArchivo[2] = {"AMOUNT", "5", "", ""};
    e.TablaArchivo[3] = {"ITEM", "4", "", ""};
    e.TablaTransaccion[0] = {"TRANS", "T"};
    e.TablaTransaccion[1] = {"P", "1"};
    e.TablaTransaccion[2] = {"", "", "M(1)", "ITEM", std::string("!1 1!2f!30!4!51!61!7") + (conClave ? ",KEY" : "")};
    if (tabuladores) e.TablaTransaccion[2].nota.clear();
    Opciones opciones;
    opciones.AnchoFijo = !tabuladores;
    opciones.MultipleFilesOption = !unico;
    opciones.Identificadores = "H,I";
    return {e, opciones};
}

const std::vector<DisenoDeEntrada>& Disenos() {
    static const std::vector<DisenoDeEntrada> disenos = {Diseno(false, false, true), Diseno(false, true, false),
                                                         Diseno(true, true, false), Diseno(true, false, false)};
    return disenos;
}

class Oyente : public OyenteDeRevision {
public:
    explicit Oyente(std::size_t archivos) : lineas(archivos), bytes(archivos) {}

    bool Hallado(const HallazgoDeDatos& hallazgo) override {
        const auto archivo = static_cast<std::size_t>(hallazgo.archivo);
        Exigir(archivo < lineas.size() && hallazgo.linea >= 1, "a finding lies in a line of a file");
        Exigir(hallazgo.linea <= lineas[archivo] + 1, "a finding comes with its line or behind it");
        Exigir(!hallazgo.texto.empty() && hallazgo.otraLinea < hallazgo.linea, "a finding tells what it is");
        return true;
    }
    bool Leida(const LineaRevisada& linea) override {
        const auto archivo = static_cast<std::size_t>(linea.archivo);
        Exigir(linea.numero == ++lineas[archivo], "lines come one by one");
        Exigir(linea.leida.lugar == bytes[archivo], "lines lie one behind the other");
        bytes[archivo] += linea.leida.largo;
        return true;
    }

    std::vector<std::uint64_t> lineas;
    std::vector<std::uint64_t> bytes;
};

void RevisarClases(std::string_view texto) {
    try {
        const auto clases = ClasesDeCampos::Leer(texto);
        const auto escritas = clases.Texto({"KEY", "ITEM"});
        const auto otras = ClasesDeCampos::Leer(escritas);
        Exigir(otras.Todas() == clases.Todas(), "kinds survive writing and reading");
        Exigir(otras.Texto({"KEY", "ITEM"}) == escritas, "comments stay where they were written");
    } catch (const FalloDeEjecucion&) {
        // No kinds.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    if (cantidad == 0) return 0;
    static ArchivoEnMemoria archivo;
    static const ReglasDeValores reglas(
        ClasesDeCampos::Leer("KEY pattern [A-Z]+[0-9]?\nDATE date YYYYMMDD\nAMOUNT number ,\nITEM required\n"), {});
    archivo.Poner(datos + 1, cantidad - 1);
    const std::string_view texto(reinterpret_cast<const char*>(datos) + 1, cantidad - 1);
    RevisarClases(texto);

    const auto& diseno = Disenos()[datos[0] % Disenos().size()];
    const std::vector<std::filesystem::path> archivos(diseno.Archivos().size(), archivo.Ruta());
    RevisionDeArchivos revision(diseno, reglas, archivos);
    Oyente oyente(archivos.size());
    revision.Correr(oyente);
    for (std::size_t i = 0; i < archivos.size(); ++i) {
        if (!revision.Archivos()[i].leido) continue;
        Exigir(oyente.bytes[i] == texto.size(), "a file is read whole");
        Exigir(oyente.lineas[i] == PartirEnLineas(texto).size(), "a file has the lines of the others who read it");
        Exigir(revision.Archivos()[i].registros <= oyente.lineas[i], "a record is a line");
    }
    return 0;
}
