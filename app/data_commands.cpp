#include "app/data_commands.h"

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "app/data_document.h"
#include "app/data_finding_formats.h"
#include "app/output_check.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "input/check.h"
#include "input/split.h"
#include "model/cells.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

struct Argumentos {
    std::string documento;
    std::vector<std::string> archivos;
    std::string formato = "text";
    std::uint64_t maximo = 1000;
    std::vector<std::string> buenos;
    std::vector<std::string> malos;
    std::vector<std::string> motivos;
};

// What is checked: the layout of a document, and what its kinds ask for.
struct Pedido {
    DisenoDeEntrada diseno;
    ReglasDeValores reglas;
    std::vector<fs::path> archivos;
    std::vector<fs::path> protegidos;  // what no output may replace, other than the inputs
};

std::string NombresDeArchivos(const DisenoDeEntrada& diseno) {
    std::string nombres;
    for (const auto& archivo : diseno.Archivos()) nombres += (nombres.empty() ? "" : ", ") + archivo.nombre;
    return nombres;
}

// The files that the document names, by their names alone, where all of them lie beside it.
std::vector<fs::path> ArchivosJuntoA(const fs::path& ruta, const Documento& documento, const DisenoDeEntrada& diseno) {
    std::vector<std::string> nombres = {documento.opciones.ArchivoFuente};
    for (const int cabeza : CabezasStepLoop(documento.especificacion)) {
        nombres.emplace_back(ValorDeMarca(documento.especificacion.TablaTransaccion[static_cast<std::size_t>(cabeza)].nota, 2));
    }
    nombres.resize(diseno.Archivos().size());
    std::vector<fs::path> archivos;
    for (const auto& nombre : nombres) {
        const auto cortado = NombreDeRuta(Recortar(nombre));
        const auto archivo = ruta.parent_path() / RutaDelSistema(cortado);
        if (cortado.empty() || !Existe(archivo)) {
            throw MalUso("FILE: " + std::string("the files that the document names do not lie beside it; it reads ") +
                         NombresDeArchivos(diseno));
        }
        archivos.push_back(archivo);
    }
    return archivos;
}

// Nothing, with a message, where the document can't be opened or reads no files.
std::optional<Pedido> Abrir(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    DocumentoDeComando abierto;
    if (!abierto.Abrir(contexto, argumentos.documento)) return std::nullopt;
    const auto& documento = abierto.documento;
    const fs::path ruta = argumentos.documento;
    DisenoDeEntrada diseno(documento.especificacion, documento.opciones);
    if (!diseno.HayArchivo()) {
        contexto.vista.Advertir(MensajeLiteral("The records of the document come from no file."));
        return std::nullopt;
    }
    std::vector<fs::path> archivos(argumentos.archivos.begin(), argumentos.archivos.end());
    if (archivos.size() > diseno.Archivos().size()) {
        throw MalUso("FILE: the document reads " + NombresDeArchivos(diseno) + " and no more");
    }
    if (archivos.empty()) archivos = ArchivosJuntoA(ruta, documento, diseno);
    const auto clases = LeerClases(contexto, documento);
    auto protegidos = ArchivosDelDocumento(contexto, ruta, clases);
    return Pedido{std::move(diseno), ReglasDeValores(clases, ruta.parent_path()), std::move(archivos), std::move(protegidos)};
}

// Counts all findings and keeps the first ones of each severity.
class Recogedor : public OyenteDeRevision {
public:
    Recogedor(const Pedido& pedido, std::uint64_t maximo, std::ostream* salida) : maximo_(maximo), salida_(salida) {
        for (std::size_t i = 0; i < pedido.archivos.size(); ++i) {
            archivos.push_back({pedido.diseno.Archivos()[i].nombre, pedido.archivos[i].string()});
        }
    }

    bool Hallado(const HallazgoDeDatos& hallazgo) override {
        auto& archivo = archivos[static_cast<std::size_t>(hallazgo.archivo)];
        const bool aviso = EsAviso(hallazgo.clase);
        ++(aviso ? archivo.avisos : archivo.errores);
        if (++(aviso ? avisos_ : errores) > maximo_) return true;
        ++dichos_;
        if (salida_ != nullptr) {
            *salida_ << HallazgoDeDatosComoTexto(archivo.ruta, hallazgo);
        } else {
            archivo.hallazgos.push_back(hallazgo);
        }
        return true;
    }

    void Terminar(const RevisionDeArchivos& revision) {
        for (std::size_t i = 0; i < archivos.size(); ++i) {
            archivos[i].completo = revision.Archivos()[i].leido;
            archivos[i].registros = revision.Archivos()[i].registros;
        }
    }

    std::uint64_t Callados() const { return errores + avisos_ - dichos_; }

    std::vector<ArchivoConHallazgos> archivos;
    std::uint64_t errores = 0;

private:
    std::uint64_t maximo_;
    std::ostream* salida_;  // null: they are kept
    std::uint64_t avisos_ = 0;
    std::uint64_t dichos_ = 0;
};

bool Check(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto pedido = Abrir(contexto, argumentos);
    if (!pedido) return false;
    const bool comoTexto = argumentos.formato == "text";
    Recogedor recogedor(*pedido, argumentos.maximo, comoTexto ? &contexto.salida : nullptr);
    RevisionDeArchivos revision(pedido->diseno, pedido->reglas, pedido->archivos);
    revision.Correr(recogedor);
    recogedor.Terminar(revision);
    if (comoTexto) {
        contexto.errores << ResumenDeDatos(recogedor.archivos, recogedor.Callados());
    } else {
        contexto.salida << HallazgosDeDatosComoJSON(recogedor.archivos);
    }
    return recogedor.errores == 0;
}

bool Split(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto pedido = Abrir(contexto, argumentos);
    if (!pedido) return false;
    const auto cuantos = pedido->archivos.size();
    // An order whose items are not there could not take them along.
    if (cuantos != pedido->diseno.Archivos().size()) throw MalUso("FILE: the document reads " + NombresDeArchivos(pedido->diseno));
    std::vector<PartesDeArchivo> partes;
    std::vector<fs::path> salidas;
    for (std::size_t i = 0; i < cuantos; ++i) {
        partes.push_back({pedido->archivos[i], argumentos.buenos[i], argumentos.malos[i], argumentos.motivos[i]});
        for (const auto* salida : {&partes.back().buenos, &partes.back().malos, &partes.back().motivos}) salidas.push_back(*salida);
    }
    auto leidos = pedido->archivos;
    leidos.insert(leidos.end(), pedido->protegidos.begin(), pedido->protegidos.end());
    ChequearSalidas("--good, --bad, --reasons", salidas, leidos, "is read");
    const auto cuentas = PartirArchivos(pedido->diseno, pedido->reglas, partes);
    for (std::size_t i = 0; i < cuantos; ++i) {
        contexto.errores << RutaDeTerminal(partes[i].archivo) << ": " << cuentas[i].buenas << " good, " << cuentas[i].malas
                         << " bad\n";
    }
    return true;
}

using Accion = bool (*)(const ContextoDeComando&, const Argumentos&);

Orden AgregarOrden(Ordenes data, const std::shared_ptr<Argumentos>& argumentos, const char* nombre, const char* descripcion,
                   Accion accion) {
    auto orden = data.raiz.Suborden(nombre, descripcion);
    orden.Dato("DOCUMENT", argumentos->documento, "A .qor document").Obligatoria();
    AlLeer(orden, data, argumentos, accion);
    return orden;
}

void AgregarCheck(Ordenes data) {
    const auto argumentos = std::make_shared<Argumentos>();
    auto orden =
        AgregarOrden(data, argumentos, "check", "Read input files as the report would, and tell what is wrong in them", Check);
    orden.Pie(
        "The kinds of the fields lie beside the document, in DOCUMENT with the extension .checks. Exit status 0 means that there "
        "are\n"
        "no errors; hints are none.");
    orden.Dato("FILE", argumentos->archivos,
               "Its input files, that of the main record first, then those of the step-loops; without the last ones only what\n"
               "the others hold is checked. Without any FILE: those that the document names, where they lie beside it");
    orden.Dato("--format", argumentos->formato, "Form of the findings: text or json; by default text")
        .UnaDe({"text", "json"})
        .Tipo("FORM");
    AgregarMaximo(orden, argumentos->maximo, "errors and N hints");
}

void AgregarSplit(Ordenes data) {
    const auto argumentos = std::make_shared<Argumentos>();
    auto orden = AgregarOrden(data, argumentos, "split", "Part input files into the records without errors and those with some",
                              [](const ContextoDeComando& contexto, const Argumentos& dados) {
                                  for (const auto* salidas : {&dados.buenos, &dados.malos, &dados.motivos}) {
                                      if (salidas->size() != dados.archivos.size()) {
                                          throw MalUso("--good, --bad and --reasons: each of them once for each FILE");
                                      }
                                  }
                                  return Split(contexto, dados);
                              });
    orden.Pie(
        "Records are copied byte for byte. An order goes with all its items: it is bad when one of them is. With several files,\n"
        "--good, --bad and --reasons are given once for each FILE, in their order. Files that exist are replaced.");
    orden.Dato("FILE", argumentos->archivos, "Its input files, that of the main record first, then those of the step-loops")
        .Obligatoria();
    const auto salida = [&](const char* nombre, std::vector<std::string>& valores, const char* descripcion) {
        orden.Dato(nombre, valores, descripcion).Obligatoria().UnaPorVez().Tipo("FILE");
    };
    salida("--good", argumentos->buenos, "File for the records without errors");
    salida("--bad", argumentos->malos, "File for the other ones");
    salida("--reasons", argumentos->motivos, "File for the errors: line, field and reason, with tabs between them");
}

}  // namespace

Ordenes AgregarComandosDeEntrada(Ordenes ordenes) {
    auto data =
        ordenes.raiz.Suborden("data", "Check input files against a document, part them, and make them from spreadsheets and back");
    data.PedirSuborden();
    data.DejarPasar();
    const Ordenes grupo{data, ordenes.comando};
    AgregarCheck(grupo);
    AgregarSplit(grupo);
    return grupo;
}

}  // namespace qor
