#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>

#include "app/Principal.h"
#include "app/examples.h"
#include "app/pages/grids_page.h"
#include "app/qt/grid_cell.h"
#include "app/qt/theme_icon.h"
#include "base/paths.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "editor/cell_actions.h"
#include "editor/cell_rules.h"
#include "editor/close_gaps.h"
#include "editor/document_commands.h"
#include "editor/grids.h"
#include "editor/undo_command.h"

// The menus and the tool bar of the main form.
namespace qor {

namespace {

constexpr int paginaDeContenido = 714;

}  // namespace

QAction* Principal::NuevaAccion(const char* nombre, QMenu* menu, const std::function<void()>& accion) {
    auto* const nueva = Nuevo<QAction>(nombre, this);
    if (menu != nullptr) menu->addAction(nueva);
    connect(nueva, &QAction::triggered, this, [this, accion] { Mandar(accion); });
    return nueva;
}

// An entry for a key of the grids, on the cell that has the keyboard.
void Principal::TeclaDelMenu(Tecla tecla) {
    if (const auto* const celda = CeldaActual()) TeclaEnCelda(ventana_, celda->Lugar(), tecla);
}

QMenu* Principal::NuevoMenu(const char* nombre) {
    auto* const menu = Nuevo<QMenu>(nombre, this);
    menuBar()->addMenu(menu);
    return menu;
}

void Principal::CrearMenus() {
    CrearMenuDeArchivo();
    CrearMenuDeEdicion();
    CrearOtrosMenus();
}

void Principal::CrearMenuDeArchivo() {
    QMenu* const archivo = NuevoMenu("FileOption");
    auto* const nuevo = NuevaAccion("NewOption", archivo, [this] { NewOption(ventana_); });
    auto* const abrir = NuevaAccion("OpenOption", archivo, [this] { ElegirYAbrir(programa_.ajustes.DirectorioDocumentos); });
    auto* const ejemplo = NuevaAccion("OpenExampleOption", archivo, [this] { AbrirEjemplo(); });
    ejemplo->setVisible(!DirectorioDeEjemplos(programa_.directorioDeDatos).empty());
    auto* const grabar = NuevaAccion("SaveOption", archivo, [this] { SaveOption(ventana_); });
    auto* const grabarComo = NuevaAccion("SaveAsOption", archivo, [this] { SaveAsOption(ventana_); });
    archivo->addSeparator();
    auto* const imprimir = NuevaAccion("PrintOption", archivo, [this] { ClicImprimir(); });
    auto* const ensayar = NuevaAccion("RehearseOption", archivo, [this] { ClicEnsayo(); });
    archivo->addSeparator();
    NuevaAccion("Directorios", archivo, [this] { ClicDirectorios(); });
    archivo->addSeparator();
    auto* const salir = Nuevo<QAction>("ExitOption", this);
    archivo->addAction(salir);
    connect(salir, &QAction::triggered, this, &QWidget::close);
    nuevo->setShortcut(QKeySequence::New);
    abrir->setShortcut(QKeySequence::Open);
    grabar->setShortcut(QKeySequence::Save);
    grabarComo->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    imprimir->setShortcut(QKeySequence::Print);
    ensayar->setShortcut(QKeySequence(Qt::Key_F9));
    salir->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    nuevo->setIcon(IconoDeTema("new"));
    abrir->setIcon(IconoDeTema("open"));
    ejemplo->setIcon(IconoDeTema("contents"));
    grabar->setIcon(IconoDeTema("save"));
    imprimir->setIcon(IconoDeTema("print"));
    ensayar->setIcon(IconoDeTema("rehearse"));
}

void Principal::CrearMenuDeEdicion() {
    QMenu* const edicion = NuevoMenu("EditOption");
    auto* const deshacer = NuevaAccion("UndoOption", edicion, [this] { Deshacer(ventana_); });
    edicion->addSeparator();
    auto* const subir = NuevaAccion("UpOption", edicion, [this] { UpButton(ventana_); });
    auto* const bajar = NuevaAccion("DownOption", edicion, [this] { DownButton(ventana_); });
    auto* const insertar = NuevaAccion("InsertOption", edicion, [this] { TeclaDelMenu(Tecla::F5); });
    auto* const borrar = NuevaAccion("DeleteOption", edicion, [this] { TeclaDelMenu(Tecla::F6); });
    NuevaAccion("RemoveBlankOption", edicion, [this] { QuitarFilasEnBlanco(ventana_); });
    edicion->addSeparator();
    auto* const nota = NuevaAccion("NoteOption", edicion, [this] {
        auto* const celda = CeldaActual();
        if (celda == nullptr) return;
        const bool deArchivo = TablaDe(celda->Lugar().columna) == Tabla::Archivo;
        const LugarDeCelda lugar{deArchivo ? Columna::Ancho : Columna::Campo, celda->Lugar().linea};
        if (const auto fila = DobleClicEnCelda(ventana_, lugar)) ClicNotas(*fila);
    });
    auto* const codigo = NuevaAccion("CodeOption", edicion, [this] {
        auto* const celda = CeldaActual();
        if (celda == nullptr || TablaDe(celda->Lugar().columna) != Tabla::Archivo) return;
        if (const auto fila = ClicEnABAP(ventana_, celda->Lugar().linea)) ClicCodigo(*fila);
    });
    edicion->addSeparator();
    auto* const definiciones = NuevaAccion("DefinitionsOption", edicion, [this] { ClicDefiniciones(); });
    auto* const estructuras = NuevaAccion("PreviewOption", edicion, [this] { ClicPreview(); });
    auto* const datos = NuevaAccion("DataPreviewOption", edicion, [this] { ClicDatos(); });
    edicion->addSeparator();
    auto* const buscar = NuevaAccion("FindOption", edicion, [this] { EnfocarControl("TextoBuscado"); });
    edicion->addSeparator();
    CrearMenuDeHallazgos(edicion);
    deshacer->setShortcut(QKeySequence::Undo);
    subir->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Up));
    bajar->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Down));
    // The cells take these keys themselves; here they are shown.
    insertar->setShortcut(QKeySequence(Qt::Key_F5));
    borrar->setShortcut(QKeySequence(Qt::Key_F6));
    nota->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_T));
    codigo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
    buscar->setShortcut(QKeySequence::Find);
    auto* const repetir = new QShortcut(QKeySequence(Qt::Key_F3), this);
    connect(repetir, &QShortcut::activated, this, [this] { rejillas_->RepetirBusqueda(); });
    deshacer->setIcon(IconoDeTema("undo"));
    subir->setIcon(IconoDeTema("up"));
    bajar->setIcon(IconoDeTema("down"));
    definiciones->setIcon(IconoDeTema("definitions"));
    estructuras->setIcon(IconoDeTema("preview"));
    datos->setIcon(IconoDeTema("data-preview"));
    datos->setShortcut(QKeySequence(Qt::Key_F7));
    buscar->setIcon(IconoDeTema("find"));
}

void Principal::CrearOtrosMenus() {
    QMenu* const conexion = NuevoMenu("Connection");
    NuevaAccion("Logon", conexion, [this] { conexion_->Logon(); });
    NuevaAccion("Logoff", conexion, [this] { conexion_->Logoff(); });
    conexion->addSeparator();
    NuevaAccion("KeepRecordingOption", conexion, [this] { conexion_->GuardarGrabacion(); });

    QMenu* const idioma = NuevoMenu("LangOption");
    NuevaAccion("LengSeleccionar", idioma, [this] { ClicSeleccionarIdioma(); });

    QMenu* const ayuda = NuevoMenu("HelpOption");
    NuevaAccion("Contenido", ayuda, [this] { MostrarAyuda(paginaDeContenido); })->setIcon(IconoDeTema("contents"));
    auto* const ejemplos = NuevaAccion("ScreenCam", ayuda, [this] { AbrirEjemplo(); });
    ejemplos->setVisible(!DirectorioDeEjemplos(programa_.directorioDeDatos).empty());
    ayuda->addSeparator();
    NuevaAccion("AboutOption", ayuda, [this] { MostrarPresentacion(); });
}

void Principal::ElegirYAbrir(const std::filesystem::path& directorio) {
    if (!DejarDocumento(ventana_)) return;
    const auto ruta = vista_->ElegirParaAbrir(directorio, filtroDeDocumentos);
    if (ruta && OpenOption(ventana_, *ruta)) RecordarDirectorio(programa_, ventana_.documento);
}

void Principal::CrearBarra() {
    auto* const barra = Nuevo<QToolBar>("BarraDeBotones", this);
    barra->setMovable(false);
    barra->setContextMenuPolicy(Qt::PreventContextMenu);
    addToolBar(barra);
    struct Boton {
        const char* nombre;  // null for a separator
        const char* accion;
    };
    for (const auto& boton : {Boton{"NewButton", "NewOption"}, Boton{"OpenButton", "OpenOption"}, Boton{"SaveButton", "SaveOption"},
                              Boton{"PrintButton", "PrintOption"}, Boton{"RehearseButton", "RehearseOption"},
                              Boton{nullptr, nullptr}, Boton{"UndoButton", "UndoOption"}, Boton{"UpButton", "UpOption"},
                              Boton{"DownButton", "DownOption"}, Boton{nullptr, nullptr}, Boton{"NewDef", "DefinitionsOption"},
                              Boton{"PreviewButton", "PreviewOption"}, Boton{"DataPreviewButton", "DataPreviewOption"}}) {
        if (boton.nombre == nullptr) {
            barra->addSeparator();
            continue;
        }
        auto* const accion = findChild<QAction*>(QString::fromLatin1(boton.accion), Qt::FindDirectChildrenOnly);
        barra->addAction(accion);
        QWidget* const control = barra->widgetForAction(accion);
        control->setObjectName(QString::fromLatin1(boton.nombre));
        control->setFocusPolicy(Qt::NoFocus);
    }
    lazos_.AlMostrar([this] {
        const int imagen = ventana_.documento.HayDefiniciones() ? 2 : 1;
        if (imagen == imagenDeDefiniciones_) return;
        imagenDeDefiniciones_ = imagen;
        controles_.Buscar<QAction>("DefinitionsOption")->setIcon(IconoDeTema(imagen == 2 ? "definitions-filled" : "definitions"));
    });
}

}  // namespace qor
