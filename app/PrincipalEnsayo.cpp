#include <QStandardPaths>
#include <algorithm>

#include "app/FormEjemplos.h"
#include "app/FormEnsayo.h"
#include "app/Principal.h"
#include "app/examples.h"
#include "app/practice_file.h"
#include "app/qt/input_memory.h"
#include "base/failure.h"
#include "base/qt/text.h"
#include "base/words.h"
#include "editor/close_gaps.h"
#include "editor/document_commands.h"
#include "input/layout.h"

// From an example to its rehearsal.
namespace qor {

namespace {

// Where the copies of examples go.
std::filesystem::path CarpetaDeCopias() {
    return RutaDeQt(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)) / "Qor Generator examples";
}

}  // namespace

// The window stands beside this one, and what came of a rehearsal stays in it until the document is another one.
void Principal::ClicEnsayo() {
    if (!OfrecerQuitarHuecos(ventana_)) return;
    if (!ensayo_) {
        const auto ajustes = programa_.rutaDeAjustes.parent_path();
        const auto memoria = RutaDeEntradas(programa_);
        ensayo_ = std::make_unique<FormEnsayo>(EntornoDeEnsayo{
            .textos = programa_.textos,
            .vista = *vista_,
            .documento = abierto_,
            .generacion =
                [this](Vista& vista) {
                    auto pedido = Pedido(vista);
                    pedido.sistema = nullptr;
                    return pedido;
                },
            .sistema = [this, ajustes] { return OpcionesDelUsuario(programa_.ajustes, programa_.directorioDeDatos, ajustes); },
            .archivoPropio = [] { return RutaDePracticaConDirectorio(EntornoDelProceso()); },
            .mandar = [this](const std::function<void()>& accion) { return Mandar(accion); },
            .recordado = [this, memoria](const auto& parametro) { return ArchivoRecordado(memoria, abierto_.ruta, parametro); },
            .recordar = [this, memoria](const auto& parametro,
                                        const auto& elegido) { RecordarArchivo(memoria, abierto_.ruta, parametro, elegido); },
            .irA =
                [this](const Lugar& lugar) {
                    raise();
                    activateWindow();
                    Mandar([&] { IrA(DestinoDe(lugar, abierto_.especificacion, abierto_.opciones)); });
                },
            .verDatos =
                [this](const auto& archivos, const auto& lugar, QWidget* ventana) {
                    const DisenoDeEntrada diseno(abierto_.especificacion, abierto_.opciones);
                    const auto elegido = [&](const std::string& parametro) {
                        for (std::size_t i = 0; i < std::min(archivos.size(), diseno.Archivos().size()); ++i) {
                            if (diseno.Archivos()[i].nombre == parametro) return archivos[i];
                        }
                        return std::filesystem::path();
                    };
                    if (diseno.HayArchivo()) Mandar([&] { VerDatos(elegido, {}, lugar, ventana); });
                },
            .valoresPropios = RutaDePractica(EntornoDelProceso()).parent_path() / "values",
            .ayuda = [this](int, QWidget* ventana) { MostrarAyuda("rehearsal.html", ventana); },
            .memoria = RutaDeMemoria(programa_)});
    }
    ensayo_->Traer();
}

// An example that is made with naming conventions has them in a settings file of its own.
void Principal::OfrecerConvenciones(const std::filesystem::path& carpeta) {
    auto& activas = programa_.ajustes.preferencias.CheckActivateNamingConventions;
    ArchivoINI propios;
    propios.CargarINI(carpeta / nombreDeAjustes);
    if (activas == 1 || propios.LeerClave("Activate Naming Conventions") != "Yes") return;
    Sincronizar();  // the question is asked above the document that it is about
    const Mensaje pregunta = MensajeDePalabra(programa_.textos, palabra::EsteEjemploUsaConvenciones);
    if (vista_->Preguntar(pregunta, Botones::SiNo) != Respuesta::Si) return;
    activas = 1;
    GuardarElecciones(programa_);
}

// Demonstrations are the examples that come with the program. A copy of the user's own is opened, with its input files beside it.
void Principal::AbrirEjemplo() {
    const auto directorio = DirectorioDeEjemplos(programa_.directorioDeDatos);
    const auto ejemplos = LeerEjemplos(programa_.directorioDeDatos, directorio);
    FormEjemplos dialogo(programa_.textos, ejemplos, CarpetaDeCopias(), this);
    dialogo.exec();
    if (const auto elegido = dialogo.Elegido()) AbrirCopia(ejemplos.at(*elegido));
}

void Principal::AbrirCopia(const EjemploIncluido& ejemplo) {
    const bool deDatos = ejemplo.clase == EjemploIncluido::Clase::JuegoDeDatos;
    if (!deDatos && !DejarDocumento(ventana_)) return;
    std::filesystem::path archivo;
    try {
        archivo =
            CopiarEjemplo(DirectorioDeEjemplos(programa_.directorioDeDatos) / ejemplo.carpeta, CarpetaDeCopias()) / ejemplo.archivo;
    } catch (const FalloDeArchivo& fallo) {
        return vista_->Advertir(ConDetalle(MensajeDePalabra(programa_.textos, palabra::NoSePuedeCopiarElEjemplo), fallo));
    }
    switch (ejemplo.clase) {
        case EjemploIncluido::Clase::Documento:
            if (!OpenOption(ventana_, archivo)) break;
            MostrarElComienzo();
            OfrecerConvenciones(archivo.parent_path());
            break;
        case EjemploIncluido::Clase::JuegoDeDatos: ClicEditorBDC(archivo); break;
        case EjemploIncluido::Clase::Grabacion: ImportarArchivo(archivo); break;
    }
}

}  // namespace qor
