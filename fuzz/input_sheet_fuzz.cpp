// Any bytes as a workbook, as one of its parts, and as a file of values: what can be read is read, and nothing else happens. The
// first byte tells which.

#include <zip.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/failure.h"
#include "fuzz/memory_file.h"
#include "fuzz/require.h"
#include "input/convert_cell.h"
#include "input/csv_reader.h"
#include "input/xlsx_reader.h"

namespace {

using namespace qor;

void LeerFilas(FuenteDeFilas& filas) {
    CampoDeRegistro campo;
    campo.ancho = 20;
    ClaseDeCampo fecha;
    fecha.tipo = ClaseDeCampo::Tipo::Fecha;
    fecha.formato = "DD.MM.YYYY";
    ClaseDeCampo numero;
    numero.tipo = ClaseDeCampo::Tipo::Numero;
    const std::array conversores = {ConversorDeCampo(campo, nullptr, false, {}), ConversorDeCampo(campo, &fecha, false, {}),
                                    ConversorDeCampo(campo, &numero, false, {}),
                                    ConversorDeCampo(campo, &numero, true, {true, "", 0})};
    FilaDeHoja fila;
    std::uint64_t ultima = 0;
    std::string valor;
    std::string motivo;
    while (filas.Siguiente(fila)) {
        Exigir(fila.numero > ultima, "rows come in their order");
        ultima = fila.numero;
        for (const auto& celda : fila.celdas) {
            for (const auto& conversor : conversores) {
                motivo.clear();
                const bool cabe = conversor.ALayout(celda, valor, motivo);
                Exigir(cabe == motivo.empty(), "what has no place has a reason");
                if (!cabe) continue;
                Exigir(valor.find_last_not_of(' ') + 1 <= campo.ancho, "a value is no longer than its field");
                const auto devuelto = conversor.AlLibro(valor);
                Exigir(devuelto.clase != ValorDeCelda::Clase::Texto || devuelto.texto == valor, "a text stays what it is");
            }
        }
    }
}

void LeerLibro(const ArchivoEnMemoria& archivo) {
    try {
        LibroXlsx libro(archivo.Ruta());
        for (const auto& hoja : libro.Hojas()) LeerFilas(*libro.Abrir(hoja));
    } catch (const FalloDeEjecucion&) {
        return;
    }
}

constexpr std::string_view relaciones =
    R"(<Relationships><Relationship Id="a" Type="/officeDocument" Target="w"/></Relationships>)";
constexpr std::string_view libro = R"(<workbook xmlns:r="r"><sheets><sheet name="A" r:id="a"/></sheets></workbook>)";
constexpr std::string_view delLibro = R"(<Relationships><Relationship Id="a" Type="/worksheet" Target="s"/>
<Relationship Id="b" Type="/sharedStrings" Target="t"/><Relationship Id="c" Type="/styles" Target="f"/></Relationships>)";
constexpr std::string_view hoja = R"(<worksheet><sheetData><row r="2"><c r="A2" s="1"><v>38.5</v></c><c t="s"><v>0</v></c>
<c t="inlineStr"><is><t>x</t></is></c><c t="b"><v>1</v></c><c t="e"><v>#N/A</v></c></row></sheetData></worksheet>)";
constexpr std::string_view textos = R"(<sst><si><t>a_x000A_</t></si><si><r><t>b</t></r></si></sst>)";
constexpr std::string_view estilos = R"(<styleSheet><numFmts><numFmt numFmtId="164" formatCode="dd.mm.yyyy"/></numFmts>
<cellXfs><xf numFmtId="0"/><xf numFmtId="164"/></cellXfs></styleSheet>)";

// A workbook, one of whose parts is the fuzzer's.
void HacerLibro(std::size_t cual, std::string_view parte, ArchivoEnMemoria& archivo) {
    constexpr std::array nombres = {"_rels/.rels", "w", "_rels/w.rels", "s", "t", "f"};
    std::array partes = {relaciones, libro, delLibro, hoja, textos, estilos};
    partes[cual % partes.size()] = parte;
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const destino = zip_source_buffer_create(nullptr, 0, 0, &error);
    zip_source_keep(destino);
    zip_t* const zip = zip_open_from_source(destino, ZIP_TRUNCATE, &error);
    Exigir(zip != nullptr, "an archive can be made in memory");
    for (std::size_t i = 0; i < partes.size(); ++i) {
        const auto indice = zip_file_add(zip, nombres[i], zip_source_buffer(zip, partes[i].data(), partes[i].size(), 0), 0);
        zip_set_file_compression(zip, static_cast<zip_uint64_t>(indice), ZIP_CM_STORE, 0);
    }
    Exigir(zip_close(zip) == 0 && zip_source_open(destino) == 0, "an archive can be written to memory");
    std::string bytes;
    char bloque[4096];
    for (zip_int64_t n = 0; (n = zip_source_read(destino, bloque, sizeof bloque)) > 0;)
        bytes.append(bloque, static_cast<std::size_t>(n));
    zip_source_close(destino);
    zip_source_free(destino);
    archivo.Poner(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    if (cantidad == 0) return 0;
    static ArchivoEnMemoria archivo;
    const int modo = datos[0] % 8;
    ++datos;
    --cantidad;
    if (modo < 6) {
        HacerLibro(static_cast<std::size_t>(modo), {reinterpret_cast<const char*>(datos), cantidad}, archivo);
        LeerLibro(archivo);
        return 0;
    }
    archivo.Poner(datos, cantidad);
    if (modo == 6) {
        LeerLibro(archivo);
        return 0;
    }
    try {
        LectorDeCsv lector(archivo.Ruta(), ';');
        LeerFilas(lector);
        SeparadorDe(archivo.Ruta(), 1, {"A", "B"});
    } catch (const FalloDeEjecucion&) {
        return 0;
    }
    return 0;
}
