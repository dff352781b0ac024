#include "app/data_convert_command.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "app/data_document.h"
#include "app/data_finding_formats.h"
#include "app/output_check.h"
#include "base/failure.h"
#include "base/text.h"
#include "input/convert.h"
#include "input/sheet.h"
#include "input/template.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr const char* pieDeConvert = R"(
One side is the layout of the document, the other one tables with a row for each record. Which is which
is seen from the extensions: .xlsx, .csv, .tsv and .tab are tables, everything else is the layout.
  qorgen data convert orders.qor orders.xlsx -o orders.txt -o items.txt
  qorgen data convert orders.qor orders.txt items.txt -o orders.csv -o items.csv

The layout has a file for each file that the report reads, FILE, SLOOP_1 and so on; name them all, in
this order. A workbook is one file with a sheet of these names for each kind of records. CSV and
tab-separated tables are one file for each kind of records, the main record first.

Headings are the names of the fields. Where one file has several kinds of records, told apart by ids,
each of their tables has a column "#" too: rows go into the file by the numbers there, which rise, of
equal numbers the main record first. Give an order and its items the same number.

By the kinds of the fields in DOCUMENT's file .checks, dates and numbers of cells get the form of the
file, and those of the file become dates and numbers. Numbers in other fields are taken as they are
displayed, with all their digits, without the signs of thousands and with a point. Texts stay what they
are, with their leading zeros. Rows without values are passed over.

Values have to be what their kinds say, in both directions. What does not fit is told with row and
column, the status is 1, and nothing is written. With --leave-out the other records are written, but
not where a whole file or table is wrong: its encoding, its headings, its numbers in "#".)";

// The forms of a side.
enum class Lado { Layout, Csv, Tabuladores, Xlsx };

const std::map<std::string, Lado> lados = {
    {"layout", Lado::Layout}, {"csv", Lado::Csv}, {"tab", Lado::Tabuladores}, {"xlsx", Lado::Xlsx}};

struct Argumentos {
    std::string documento;
    std::vector<std::string> entradas;
    std::vector<std::string> salidas;
    std::optional<std::string> desde;
    std::optional<std::string> hacia;
    std::string columnas = "heading";
    int filaDeTitulos = 1;
    bool otrasColumnas = false;
    std::optional<std::string> separador;
    std::vector<std::string> hojas;
    std::string celdas = "displayed";
    std::optional<std::string> fechas;
    std::optional<std::string> decimales;
    bool dejarFuera = false;
    std::uint64_t maximo = 1000;
};

std::vector<fs::path> Rutas(const std::vector<std::string>& textos) { return {textos.begin(), textos.end()}; }

Lado LadoDe(const std::optional<std::string>& dicho, const std::vector<std::string>& archivos) {
    if (dicho) return lados.at(*dicho);
    const auto extension = Minusculas(fs::path(archivos.front()).extension().string());
    if (extension == ".xlsx" || extension == ".xlsm") return Lado::Xlsx;
    if (extension == ".csv") return Lado::Csv;
    if (extension == ".tsv" || extension == ".tab") return Lado::Tabuladores;
    return Lado::Layout;
}

FormaDeTabla FormaDe(Lado lado) {
    return lado == Lado::Xlsx ? FormaDeTabla::Xlsx : lado == Lado::Csv ? FormaDeTabla::Csv : FormaDeTabla::Tabuladores;
}

// A conversion as it was asked for.
class PedidoDeConversion {
public:
    PedidoDeConversion(const ContextoDeComando& contexto, const Argumentos& argumentos, const Documento& documento)
        : contexto_(contexto),
          argumentos_(argumentos),
          diseno_(documento.especificacion, documento.opciones),
          clases_(LeerClases(contexto, documento)),
          reglas_(clases_, std::filesystem::path(documento.ruta).parent_path()),
          desde_(LadoDe(argumentos.desde, argumentos.entradas)),
          hacia_(LadoDe(argumentos.hacia, argumentos.salidas)) {
        if (!diseno_.HayArchivo()) throw FalloDeEjecucion("the records of the document come from no file");
        if ((desde_ == Lado::Layout) == (hacia_ == Lado::Layout)) {
            throw MalUso(desde_ == Lado::Layout ? "IN and -o both are in the layout; one has to be a table, see --from and --to"
                                                : "IN and -o both are tables; one has to be in the layout, see --from and --to");
        }
        ExigirArchivos("IN", desde_, argumentos_.entradas);
        ExigirArchivos("-o", hacia_, argumentos_.salidas);
        ProtegerEntradas(documento.ruta);
        ExigirHojas();
        PonerOpciones(documento.opciones.ServidorOp());
    }

    bool Convertir() {
        const bool alLayout = hacia_ == Lado::Layout;
        Tablas tablas{FormaDe(alLayout ? desde_ : hacia_), Rutas(alLayout ? argumentos_.entradas : argumentos_.salidas)};
        if (desde_ == Lado::Xlsx) {
            tablas.hojas = argumentos_.hojas;
            tablas.hojas = hojas_ = BuscarHojas(diseno_, tablas);
        }
        const auto archivos = Rutas(alLayout ? argumentos_.salidas : argumentos_.entradas);
        const OyenteDeConversion oyente = [this](const HallazgoDeDatos& hallazgo) { Decir(hallazgo); };
        const auto conversion = alLayout ? ConvertirALayout(diseno_, clases_, reglas_, tablas, archivos, opciones_, oyente)
                                         : ConvertirATablas(diseno_, clases_, reglas_, archivos, tablas, opciones_, oyente);
        Resumir(conversion);
        return conversion.hallazgos == 0;
    }

private:
    void ExigirArchivos(const std::string& argumento, Lado lado, const std::vector<std::string>& archivos) const {
        std::string nombres;
        std::size_t cuantos = 1;
        if (lado == Lado::Layout) {
            cuantos = diseno_.Archivos().size();
            for (const auto& archivo : diseno_.Archivos()) nombres += " " + archivo.nombre;
        } else if (lado != Lado::Xlsx) {
            cuantos = diseno_.Clases().size();
            for (const auto& clase : diseno_.Clases()) nombres += " " + NombreDeHoja(clase);
        }
        if (archivos.size() == cuantos) return;
        throw MalUso(argumento + ": " + Cuantos(archivos.size(), "file") + " given, and " + std::to_string(cuantos) +
                     " are needed" + (nombres.empty() ? "" : ":" + nombres));
    }

    void ProtegerEntradas(const fs::path& documento) const {
        auto leidos = ArchivosDelDocumento(contexto_, documento, clases_);
        const auto entradas = Rutas(argumentos_.entradas);
        leidos.insert(leidos.end(), entradas.begin(), entradas.end());
        ChequearSalidas("-o", Rutas(argumentos_.salidas), leidos, "is read");
    }

    void ExigirHojas() const {
        const auto& hojas = argumentos_.hojas;
        if (hojas.empty()) return;
        if (desde_ != Lado::Xlsx) throw MalUso("--sheet: only sheets of a workbook that is read can be named");
        if (hojas.size() > diseno_.Clases().size()) {
            throw MalUso("--sheet: " + Cuantos(hojas.size(), "sheet") + " for " + Cuantos(diseno_.Clases().size(), "kind") +
                         " of records");
        }
        for (std::size_t i = 0; i < hojas.size(); ++i) {
            const auto otra = std::find(hojas.begin() + static_cast<std::ptrdiff_t>(i) + 1, hojas.end(), hojas[i]);
            if (otra != hojas.end()) throw MalUso("--sheet: " + hojas[i] + " comes twice");
        }
    }

    // Without headings nothing tells what separates the values of a table.
    void ExigirSeparador() const {
        if (desde_ != Lado::Csv || opciones_.filaDeTitulos > 0 || opciones_.separador != 0) return;
        const auto& clases = diseno_.Clases();
        const bool haceFalta = std::any_of(clases.begin(), clases.end(), [this](const auto& clase) {
            return Titulos(clase, ConNumero(diseno_, clase)).size() > 1;
        });
        if (haceFalta) throw MalUso("--separator: without headings it has to be told");
    }

    void PonerOpciones(bool servidor) {
        opciones_.celdas.comoGuardado = argumentos_.celdas == "stored";
        if (argumentos_.fechas) {
            opciones_.celdas.fechas = DeArgumento(*argumentos_.fechas);
            if (!DiceElDia(opciones_.celdas.fechas)) throw MalUso("--dates: needs DD, MM and YYYY, such as DD.MM.YYYY");
        }
        if (argumentos_.decimales) opciones_.celdas.decimales = argumentos_.decimales->front();
        if (argumentos_.separador) opciones_.separador = argumentos_.separador->front();
        opciones_.porOrden = argumentos_.columnas == "order";
        opciones_.filaDeTitulos = argumentos_.filaDeTitulos;
        if (!opciones_.porOrden && opciones_.filaDeTitulos == 0 && hacia_ == Lado::Layout) {
            throw MalUso("--heading-row: without headings columns go by their order, see --columns");
        }
        ExigirSeparador();
        opciones_.otrasColumnas = argumentos_.otrasColumnas;
        opciones_.dejarFuera = argumentos_.dejarFuera;
        // On the server a CR would be part of the last field.
        opciones_.finDeLinea = servidor ? "\n" : "\r\n";
    }

    void Decir(const HallazgoDeDatos& hallazgo) {
        if (++hallazgos_ > argumentos_.maximo) return;
        const auto lugar = static_cast<std::size_t>(hallazgo.archivo);
        if (desde_ != Lado::Xlsx) {
            contexto_.salida << HallazgoDeDatosComoTexto(argumentos_.entradas[lugar], hallazgo);
            return;
        }
        auto sinLinea = hallazgo;
        sinLinea.linea = 0;
        const auto celda =
            hallazgo.columna > 0 ? NombreDeCelda(hallazgo.columna - 1, hallazgo.linea) : std::to_string(hallazgo.linea);
        contexto_.salida << HallazgoDeDatosComoTexto(argumentos_.entradas.front() + ':' + hojas_[lugar] + '!' + celda, sinLinea);
    }

    void Resumir(const Conversion& conversion) const {
        auto& errores = contexto_.errores;
        const auto callados = hallazgos_ - std::min(hallazgos_, argumentos_.maximo);
        if (callados > 0) errores << callados << (callados == 1 ? " finding" : " findings") << " more, see --max-findings\n";
        for (std::size_t i = 0; i < conversion.registros.size(); ++i) {
            errores << NombreDeHoja(diseno_.Clases()[i]) << ' ' << conversion.registros[i] << ", ";
        }
        errores << conversion.hallazgos << (conversion.hallazgos == 1 ? " error" : " errors");
        if (!conversion.escrita) {
            errores << "; nothing was written";
        } else if (conversion.hallazgos > 0) {
            errores << "; records left out: " << conversion.fuera;
        }
        errores << '\n';
    }

    const ContextoDeComando& contexto_;
    const Argumentos& argumentos_;
    DisenoDeEntrada diseno_;
    ClasesDeCampos clases_;
    ReglasDeValores reglas_;
    Lado desde_;
    Lado hacia_;
    OpcionesDeConversion opciones_;
    std::vector<std::string> hojas_;  // of a workbook that is read
    std::uint64_t hallazgos_ = 0;
};

bool Convert(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    DocumentoDeComando abierto;
    if (!abierto.Abrir(contexto, argumentos.documento)) return false;
    return PedidoDeConversion(contexto, argumentos, abierto.documento).Convertir();
}

bool Template(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto extension = Minusculas(fs::path(argumentos.salidas.front()).extension().string());
    if (extension != ".xlsx") throw MalUso("-o: the workbook has the extension .xlsx, not \"" + extension + "\"");
    DocumentoDeComando abierto;
    if (!abierto.Abrir(contexto, argumentos.documento)) return false;
    const auto& documento = abierto.documento;
    const DisenoDeEntrada diseno(documento.especificacion, documento.opciones);
    const auto clases = LeerClases(contexto, documento);
    ChequearSalida("-o", argumentos.salidas.front(), ArchivosDelDocumento(contexto, documento.ruta, clases), "is read");
    if (!diseno.HayArchivo()) throw FalloDeEjecucion("the records of the document come from no file");
    EscribirPlantilla(diseno, documento.especificacion, clases, documento.ruta, argumentos.salidas.front());
    return true;
}

void AgregarConvert(Ordenes grupo) {
    const auto argumentos = std::make_shared<Argumentos>();
    auto orden = grupo.raiz.Suborden("convert", "Turn tables of a spreadsheet into input files, and back");
    orden.Pie(pieDeConvert);
    orden.Dato("DOCUMENT", argumentos->documento, "A .qor document").Obligatoria();
    orden.Dato("IN", argumentos->entradas, "The files to read").Obligatoria();
    const auto varias = [orden](const char* nombre, std::vector<std::string>& valores, const char* descripcion, const char* tipo) {
        return orden.Dato(nombre, valores, descripcion).Tipo(tipo).UnaPorVez();
    };
    varias("-o,--output", argumentos->salidas, "A file to write; once for each. One that exists is replaced", "OUT").Obligatoria();
    const auto lado = Nombres(lados);
    orden.Dato("--from", argumentos->desde, "What IN is, whatever its extension: layout, csv, tab or xlsx")
        .UnaDe(lado)
        .Tipo("FORM");
    orden.Dato("--to", argumentos->hacia, "What OUT is, whatever its extension").UnaDe(lado).Tipo("FORM");
    orden.Dato("--columns", argumentos->columnas, "How columns go to fields: heading or order; by default heading")
        .UnaDe({"heading", "order"})
        .Tipo("WAY");
    orden
        .Dato("--heading-row", argumentos->filaDeTitulos,
              "Row of the headings; what is above is passed over. 0: there are none. By default 1")
        .Entre(0, 1000000)
        .Tipo("N");
    orden.Marca("--other-columns", argumentos->otrasColumnas, "Pass over columns whose heading is no field");
    orden
        .Dato("--separator", argumentos->separador,
              "Separator of CSV; by default what the headings show, and a semicolon for what is written")
        .UnaDe({",", ";"})
        .Tipo("SIGN");
    varias("--sheet", argumentos->hojas, "A sheet of the workbook to read; once for each kind of records", "NAME");
    orden.Dato("--cells", argumentos->celdas, "Take numbers of cells as displayed or as stored; by default displayed")
        .UnaDe({"displayed", "stored"})
        .Tipo("WAY");
    orden.Dato("--dates", argumentos->fechas, "How dates stand in the texts of tables; by default as in the layout")
        .Tipo("DD.MM.YYYY");
    orden.Dato("--decimals", argumentos->decimales, "Decimal sign in the texts of tables; by default as in the layout")
        .UnaDe({",", "."})
        .Tipo("SIGN");
    orden.Marca("--leave-out", argumentos->dejarFuera,
                "Write the records that fit, and leave out the others; an order goes with all its items");
    AgregarMaximo(orden, argumentos->maximo, "findings");
    AlLeer(orden, grupo, argumentos, Convert);
}

void AgregarTemplate(Ordenes grupo) {
    const auto argumentos = std::make_shared<Argumentos>();
    auto orden = grupo.raiz.Suborden("template", "Write a workbook to fill in for a document");
    orden.Pie(
        "The workbook has a sheet for each kind of records, with the headings that convert reads, the notes of the\n"
        "file side, and what the kinds in DOCUMENT's file .checks say of the fields.");
    orden.Dato("DOCUMENT", argumentos->documento, "A .qor document").Obligatoria();
    orden.Dato("-o,--output", argumentos->salidas, "The workbook. One that exists is replaced")
        .Obligatoria()
        .Cuantos(1, 1)
        .Tipo("FILE.xlsx");
    AlLeer(orden, grupo, argumentos, Template);
}

}  // namespace

void AgregarComandosDeConversion(Ordenes grupo) {
    AgregarConvert(grupo);
    AgregarTemplate(grupo);
}

}  // namespace qor
