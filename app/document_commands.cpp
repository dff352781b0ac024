#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <ostream>

#include "app/check_command.h"
#include "app/command.h"
#include "app/console_view.h"
#include "base/new_file.h"
#include "base/text.h"
#include "generator/data_source_models.h"
#include "generator/generate.h"
#include "model/document_file.h"
#include "print/specification_print.h"
#include "print/text_device.h"

namespace qor {

namespace {

// Stands for the standard output where a file is written.
constexpr const char* salidaEstandar = "-";

struct Argumentos {
    std::string documento;
    std::optional<std::string> archivo;
    std::string modelo;
    std::string fuente;
    std::optional<std::string> tabla;
};

bool Generate(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    DocumentoDeComando abierto;
    if (!abierto.Abrir(contexto, argumentos.documento)) return false;
    auto pedido = abierto.Pedido(contexto);
    if (argumentos.archivo == salidaEstandar) {
        const auto reporte = ComponerReporte(pedido);
        if (reporte) contexto.salida << TextoDeTerminal(reporte->texto);
        return reporte.has_value();
    }
    pedido.salida = argumentos.archivo;
    EstadoDelGenerador estado;
    return Generar(pedido, estado).has_value();
}

bool Convert(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    DocumentoDeComando abierto;
    if (!abierto.Abrir(contexto, argumentos.documento)) return false;
    if (EstaEnBlanco(*argumentos.archivo)) return false;
    return GuardarDocumentoComo(abierto.documento, *argumentos.archivo, contexto.textos, contexto.vista);
}

const std::map<std::string, FuenteDeModelo> fuentes = {
    {"client-flat", FuenteDeModelo::ClientFlat}, {"client-tab", FuenteDeModelo::ClientTab}, {"server", FuenteDeModelo::Server}};

bool Source(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    DocumentoDeComando abierto;
    if (!abierto.Abrir(contexto, argumentos.documento)) return false;
    abierto.documento.especificacion.OrigenUsuario = true;
    const auto pedido = abierto.Pedido(contexto);
    const auto estructuras = ImprimirEstructuras(pedido);
    if (estructuras.texto.empty()) return false;
    const auto& tablas = estructuras.tablas;
    const std::string itab = argumentos.tabla ? DeArgumento(*argumentos.tabla) : tablas.front();
    if (std::find(tablas.begin(), tablas.end(), itab) == tablas.end()) {
        throw MalUso("--table: the report has no internal table " + *argumentos.tabla);
    }
    const auto textos = TextosDe(abierto.documento.especificacion);
    const bool hecho = argumentos.modelo == "file"       ? ModeloArchivo(pedido, textos, itab, fuentes.at(argumentos.fuente))
                       : argumentos.modelo == "open-sql" ? ModeloOpenSQL(pedido, textos, itab, estructuras.texto)
                                                         : ModeloSQLNativo(pedido, textos, itab, estructuras.texto);
    return hecho && abierto.Guardar(contexto);
}

// The printed text as a file, which is opened before anything is said to be printed.
class ImpresionEnArchivo : public DispositivoDeTexto {
public:
    explicit ImpresionEnArchivo(const std::filesystem::path& ruta) : archivo_(ruta) {}

    void Terminar() override {
        DispositivoDeTexto::Terminar();
        archivo_.Escribir(Texto());
        archivo_.PonerEnSuLugar();
    }

private:
    ArchivoNuevo archivo_;
};

bool Print(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    DocumentoDeComando abierto;
    if (!abierto.Abrir(contexto, argumentos.documento)) return false;
    DispositivoDeTexto dispositivo;
    std::optional<ImpresionEnArchivo> archivo;
    const auto elegir = [&]() -> Dispositivo* {
        if (!argumentos.archivo || argumentos.archivo == salidaEstandar) return &dispositivo;
        return &archivo.emplace(*argumentos.archivo);
    };
    if (!PrintOption(abierto.Pedido(contexto), elegir)) return false;
    contexto.salida << TextoDeTerminal(dispositivo.Texto());
    return true;
}

// A command on a document, with its own arguments.
class OrdenDeDocumento {
public:
    OrdenDeDocumento(Ordenes ordenes, const char* nombre, const char* descripcion, const char* pie,
                     bool (*accion)(const ContextoDeComando&, const Argumentos&))
        : argumentos_(std::make_shared<Argumentos>()), orden_(ordenes.raiz.Suborden(nombre, descripcion)) {
        orden_.Pie(pie);
        orden_.Dato("DOCUMENT", argumentos_->documento, "A .qor document").Obligatoria();
        AlLeer(orden_, ordenes, argumentos_, accion);
    }

    Opcion ConSalida(const char* tipo, const char* descripcion) {
        return orden_.Dato("-o,--output", argumentos_->archivo, descripcion).Tipo(tipo);
    }

    Argumentos& Valores() { return *argumentos_; }
    const Orden& LaOrden() const { return orden_; }

private:
    std::shared_ptr<Argumentos> argumentos_;
    Orden orden_;
};

void AgregarSource(Ordenes ordenes) {
    OrdenDeDocumento orden(ordenes, "source", "Append a code model to the document's own data source",
                           "The data source is switched on, and the document saved.",
                           [](const ContextoDeComando& contexto, const Argumentos& argumentos) {
                               if (argumentos.modelo == "file" && argumentos.fuente.empty()) {
                                   throw MalUso("--from: a file model needs to know where the file lies");
                               }
                               return Source(contexto, argumentos);
                           });
    orden.LaOrden()
        .Dato("--model", orden.Valores().modelo, "Kind of model: file, open-sql or native-sql")
        .Obligatoria()
        .UnaDe({"file", "open-sql", "native-sql"})
        .Tipo("KIND");
    orden.LaOrden().Dato("--table", orden.Valores().tabla, "Internal table to fill; by default the main one").Tipo("NAME");
    orden.LaOrden()
        .Dato("--from", orden.Valores().fuente, "Where a file lies: client-flat, client-tab or server")
        .UnaDe(Nombres(fuentes))
        .Tipo("PLACE");
}

}  // namespace

void AgregarComandosDeDocumento(Ordenes ordenes) {
    OrdenDeDocumento(
        ordenes, "generate", "Write the ABAP report of a document",
        "The report goes to the document's own output file, or to FILE. A file that exists is replaced only\nwith --yes. "
        "With FILE \"-\" it goes to the standard output, in UTF-8 with LF at line ends.",
        Generate)
        .ConSalida("FILE", "Output file, in the place of the document's own");
    AgregarComandoCheck(ordenes);
    OrdenDeDocumento(ordenes, "convert", "Save a document of either format under another name",
                     "NEW is written in the present format. A document of that name is replaced.", Convert)
        .ConSalida("NEW", "The new document")
        .Obligatoria();
    OrdenDeDocumento(ordenes, "print", "Print a document's specification as plain text",
                     "The text goes to the standard output (also with FILE \"-\"), or to FILE in windows-1252.", Print)
        .ConSalida("FILE", "File for the text");
    AgregarSource(ordenes);
}

}  // namespace qor
