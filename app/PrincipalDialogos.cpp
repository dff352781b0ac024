#include <QApplication>
#include <QTimer>
#include <utility>

#include "app/FormAbout.h"
#include "app/FormDatos.h"
#include "app/FormDirectorios.h"
#include "app/FormEnsayo.h"
#include "app/FormLenguaje.h"
#include "app/FormSelectLanguage.h"
#include "app/Principal.h"
#include "app/practice_file.h"
#include "app/qt/input_memory.h"
#include "app/qt/theme_icon.h"
#include "app/refusal_view.h"
#include "bapi/FormBAPI.h"
#include "bapi/FormTrans.h"
#include "base/paths.h"
#include "base/qt/room.h"
#include "base/words.h"
#include "dataset/FormBDCEditor.h"
#include "editor/FormABAPWindow.h"
#include "editor/FormCamposQueFaltan.h"
#include "editor/FormConditions.h"
#include "editor/FormDataSource.h"
#include "editor/FormNotas.h"
#include "editor/FormNuevasVariables.h"
#include "editor/add_operation.h"
#include "editor/close_gaps.h"
#include "editor/data_source.h"
#include "editor/grids.h"
#include "editor/missing_fields.h"
#include "generator/generate.h"
#include "input/layout.h"
#include "model/suggested_name.h"
#include "print/FormPreview.h"
#include "print/FormPrinters.h"
#include "print/specification_print.h"

// What the main form opens: the generator, the printer and the dialogs.
namespace qor {

AbrirAyuda Principal::Ayuda() {
    return [this](int mensaje, QWidget* ventana) { MostrarAyuda(mensaje, ventana); };
}

PedidoDeGeneracion Principal::Pedido(Vista& vista) {
    auto pedido =
        PedidoDeGeneracion::De(ventana_.documento, programa_.ajustes.preferencias, programa_.textos, vista, conexion_->Sistema());
    pedido.directorioDelDocumento = ventana_.documento.ruta.parent_path();
    return pedido;
}

// A run cuts the name of the error table in the options.
void Principal::ClicGenerar() {
    if (!OfrecerQuitarHuecos(ventana_)) return;
    const std::string antes = abierto_.opciones.TablaZ;
    VistaDeRechazo vista(*vista_);
    const bool escrito = Generar(Pedido(vista), programa_.generador).has_value();
    if (abierto_.opciones.TablaZ != antes) abierto_.Cambiar();
    HallazgosTrasGenerar(vista.Fin(escrito));
}

void Principal::ClicImprimir() {
    if (!OfrecerQuitarHuecos(ventana_)) return;
    ImpresionEnPapel papel(programa_.textos, *vista_, NombreSugerido(abierto_, ".pdf", programa_.textos), RutaDeMemoria(programa_),
                           this);
    PrintOption(Pedido(*vista_), [&] { return papel.Elegir(); });
}

void Principal::ClicNotas(FilaDeTabla fila) {
    FormNotas(ventana_, fila, Ayuda(), this).exec();
    ColorearFila(ventana_, fila);
}

void Principal::ClicCodigo(int fila, const Destino* destino) {
    FormABAPWindow dialogo(ventana_, fila, programa_.directorioDeDatos, Ayuda(), this);
    if (destino != nullptr) dialogo.IrA(destino->linea);
    dialogo.exec();
    ColorearFila(ventana_, {Tabla::Archivo, fila});
}

void Principal::ClicCondiciones(const Destino* destino) {
    FormConditions dialogo(ventana_, Ayuda(), this);
    if (destino != nullptr) dialogo.IrA(destino->fila, destino->linea);
    dialogo.exec();
}

void Principal::ClicDefiniciones(const Destino* destino) {
    FormNuevasVariables dialogo(
        ventana_, [this](QWidget* ventana) { NavegarBAPIs(ventana, true, -1); }, Ayuda(), this);
    if (destino != nullptr) dialogo.IrA(destino->fila, destino->linea);
    dialogo.exec();
}

void Principal::ClicOrigen(const Destino* destino) {
    auto estado = AbrirOrigen(ventana_, programa_.ajustes.preferencias);
    if (!estado) return;
    FormDataSource dialogo(
        ventana_, programa_.ajustes.preferencias, std::move(*estado),
        [this](const std::string& texto, QWidget* ventana) { MostrarEstructuras(texto, ventana); }, Ayuda(), this);
    if (destino != nullptr) dialogo.IrA(destino->control, destino->linea);
    dialogo.exec();
}

void Principal::ClicPreview() {
    if (!OfrecerQuitarHuecos(ventana_)) return;
    const std::string texto = TextoDePreview(ventana_, programa_.ajustes.preferencias);
    if (!texto.empty()) MostrarEstructuras(texto, this);
}

void Principal::ClicDatos(const std::filesystem::path& archivo) {
    if (!DisenoDeEntrada(abierto_.especificacion, abierto_.opciones).HayArchivo()) {
        vista_->Informar(MensajeDePalabra(programa_.textos, palabra::SinArchivoNoHayDatosQueMostrar));
        return;
    }
    VerDatos([this](const auto& parametro) { return ArchivoRecordado(RutaDeEntradas(programa_), abierto_.ruta, parametro); },
             archivo, {}, this);
}

void Principal::VerDatos(const std::function<std::filesystem::path(const std::string&)>& recordado,
                         const std::filesystem::path& archivo, const std::optional<LugarDeEntrada>& lugar, QWidget* ventana) {
    const EntornoDeDatos entorno{.ayuda = [this](int, QWidget* suya) { MostrarAyuda("data-preview.html", suya); },
                                 .recordado = recordado,
                                 .recordar =
                                     [this](const auto& parametro, const auto& elegido) {
                                         RecordarArchivo(RutaDeEntradas(programa_), abierto_.ruta, parametro, elegido);
                                         if (ensayo_) ensayo_->TomarArchivo(parametro, elegido);
                                     },
                                 .memoria = RutaDeMemoria(programa_),
                                 .alCambiar = [this] { Sincronizar(); }};
    FormDatos dialogo(ventana_, entorno, archivo, ventana);
    if (lugar) dialogo.IrA(*lugar);
    dialogo.exec();
}

void Principal::MostrarEstructuras(const std::string& texto, QWidget* ventana) {
    FormPreview(programa_.textos, *vista_, texto, Ayuda(), ventana).exec();
}

void Principal::ClicCamposQueFaltan(bool pedido) {
    const auto campos = CamposQueFaltan(abierto_.especificacion);
    if (campos.empty()) {
        if (pedido) vista_->Informar(Componer(programa_.textos, {448}));
        return;
    }
    FormCamposQueFaltan dialogo(programa_.textos, campos, this);
    dialogo.exec();
    AgregarCampos(ventana_, dialogo.Elegidos());
}

void Principal::ClicAgregarOperacion() {
    int cabeza = -1;
    AgregarOperacion(ventana_, [this, &cabeza](int fila) {
        cabeza = fila;
        FormTrans dialogo(
            programa_.textos, [this, fila](QWidget* ventana) { NavegarBAPIs(ventana, false, fila); }, this);
        dialogo.exec();
        return dialogo.OperacionElegida();
    });
    if (cabeza >= 0 && abierto_.especificacion.TablaTransaccion[cabeza].EsCabezaBAPI()) ClicCamposQueFaltan(false);
}

// An update of the catalogue is written beside the settings, where the user may write. That of the practice system goes apart, and
// is in use only as long as the user practises.
void Principal::NavegarBAPIs(QWidget* ventana, bool soloDefinicion, int fila) {
    const bool practica = conexion_->EsDePractica();
    auto catalogo = practica && !catalogoDePractica_.empty() ? catalogoDePractica_ : programa_.ajustes.ArchivoBAPI;
    const auto antes = catalogo;
    EntornoDeBAPI entorno{.ArchivoBAPI = catalogo,
                          .directorio = DirectorioDeCatalogos(),
                          .sesion = conexion_->Sesion(),
                          .SoloDefinicion = soloDefinicion,
                          .FilaInsercion = fila,
                          .imprimir = [this](const std::string& nombre, const std::string& documentacion, QWidget* padre) {
                              ImpresionEnPapel papel(programa_.textos, *vista_, ComoNombreDeArchivo(nombre, ".pdf"),
                                                     RutaDeMemoria(programa_), padre);
                              if (Dispositivo* const dispositivo = papel.Elegir()) {
                                  ImprimirBAPI(*dispositivo, programa_.textos, *vista_, nombre, documentacion);
                              }
                          }};
    FormBAPI(ventana_.documento, programa_.textos, *vista_, std::move(entorno), ventana).exec();
    if (catalogo == antes) return;
    if (practica) {
        catalogoDePractica_ = catalogo;
    } else {
        programa_.ajustes.ArchivoBAPI = catalogo;
        GuardarElecciones(programa_);
    }
}

std::filesystem::path Principal::DirectorioDeCatalogos() const {
    const auto directorio = programa_.rutaDeAjustes.parent_path();
    return conexion_->EsDePractica() ? DirectorioDeCatalogosDePractica(directorio) : directorio;
}

void Principal::ClicEditorBDC(const std::filesystem::path& archivo) {
    FormBDCEditor dialogo(programa_.textos, *vista_, Ayuda(), this);
    dialogo.setWindowIcon(IconoDeTema("data-set-editor"));
    if (!archivo.empty()) dialogo.Abrir(archivo);
    dialogo.exec();
}

void Principal::ClicDirectorios() {
    if (FormDirectorios(programa_.textos, *vista_, programa_.ajustes, this).exec() == QDialog::Accepted) GuardarAjustes();
}

// ---- Language and opening box ----

void Principal::CargarIdioma(std::string_view nombre) {
    switch (ElegirIdioma(programa_, nombre)) {
        case ResultadoIdioma::SinArchivo:
            vista_->Advertir(MensajeLiteral(avisoSinIdioma));
            TerminarCon(1);
            return;
        case ResultadoIdioma::Fallo: vista_->Advertir(MensajeLiteral(avisoFalloIdioma)); break;
        case ResultadoIdioma::Bien: break;
    }
    RefrescarIdioma();
    // Longer words need more room, once the layouts know of them.
    QTimer::singleShot(0, this, [this] {
        if (isMaximized() || isFullScreen()) return;
        resize(size().expandedTo(sizeHint().boundedTo(SitioEnPantalla(*this))));
    });
}

void Principal::ClicSeleccionarIdioma() {
    FormLenguaje dialogo(programa_.textos, *vista_, programa_.directorioDeDatos / "language.txt", programa_.ajustes.IdiomaActual,
                         this);
    dialogo.exec();
    if (const std::string elegido = dialogo.IdiomaElegido(); !elegido.empty()) CargarIdioma(elegido);
}

void Principal::PreguntarIdioma() {
    FormSelectLanguage dialogo(programa_.textos, programa_.directorioDeDatos / "language.txt", this);
    dialogo.exec();
    CargarIdioma(dialogo.Idioma());
}

void Principal::MostrarPresentacion() { FormAbout(programa_.textos, QApplication::applicationVersion(), this).exec(); }

}  // namespace qor
