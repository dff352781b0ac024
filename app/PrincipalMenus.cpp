#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>
#include <QWhatsThis>
#include <vector>

#include "app/Principal.h"
#include "app/examples.h"
#include "app/pages/grids_page.h"
#include "app/qt/grid_cell.h"
#include "app/qt/theme_icon.h"
#include "base/paths.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/qt/words.h"
#include "editor/cell_actions.h"
#include "editor/cell_rules.h"
#include "editor/close_gaps.h"
#include "editor/document_commands.h"
#include "editor/grids.h"
#include "editor/row_places.h"
#include "editor/row_range.h"
#include "editor/undo_command.h"

// The menus and the tool bar of the main form.
namespace qor {

QAction* Principal::NuevaAccion(const char* nombre, QMenu* menu, const std::function<void()>& accion) {
    auto* const nueva = Nuevo<QAction>(nombre, this);
    if (menu != nullptr) menu->addAction(nueva);
    connect(nueva, &QAction::triggered, this, [this, accion] { Mandar(accion); });
    return nueva;
}

// An entry for a key of the grids, on the cell that has the keyboard, which the command has left, and the rows marked around it.
void Principal::TeclaDelMenu(Tecla tecla) {
    const auto* const celda = CeldaActual();
    if (celda == nullptr) return;
    EntrarEnMarcada(ventana_, celda->Lugar());
    TeclaEnCelda(ventana_, celda->Lugar(), tecla);
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
    auto* const nuevo = NuevaAccion("NewOption", archivo, [this] {
        if (!NewOption(ventana_)) return;
        OcultarInicio();
        MostrarElComienzo();
    });
    auto* const abrir = NuevaAccion("OpenOption", archivo, [this] { ElegirYAbrir(); });
    CrearMenuDeRecientes(archivo);
    auto* const ejemplo = NuevaAccion("OpenExampleOption", archivo, [this] { AbrirEjemplo(); });
    ejemplo->setVisible(!DirectorioDeEjemplos(programa_.directorioDeDatos).empty());
    auto* const grabar = NuevaAccion("SaveOption", archivo, [this] { SaveOption(ventana_); });
    auto* const grabarComo = NuevaAccion("SaveAsOption", archivo, [this] { SaveAsOption(ventana_); });
    archivo->addSeparator();
    auto* const imprimir = NuevaAccion("PrintOption", archivo, [this] { ClicImprimir(); });
    auto* const ensayar = NuevaAccion("RehearseOption", archivo, [this] { ClicEnsayo(); });
    auto* const generar = NuevaAccion("GenerateOption", archivo, [this] { ClicGenerar(); });
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
    generar->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_G));
    generar->setIcon(IconoDeTema("generate"));
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
    deshacer->setShortcut(QKeySequence::Undo);
    deshacer->setIcon(IconoDeTema("undo"));
    edicion->addSeparator();
    CrearPortapapeles(edicion);
    edicion->addSeparator();
    CrearMenuDeFilas(edicion);
    edicion->addSeparator();
    CrearAccionesDeFila(edicion);
    edicion->addSeparator();
    NuevaAccion("AddOperationOption", edicion, [this] { ClicAgregarOperacion(); })->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
    auto* const definiciones = NuevaAccion("DefinitionsOption", edicion, [this] { ClicDefiniciones(); });
    NuevaAccion("SourceOption", edicion, [this] { ClicOrigen(); })->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D));
    auto* const estructuras = NuevaAccion("PreviewOption", edicion, [this] { ClicPreview(); });
    auto* const datos = NuevaAccion("DataPreviewOption", edicion, [this] { ClicDatos(); });
    edicion->addSeparator();
    auto* const buscar = NuevaAccion("FindOption", edicion, [this] { EnfocarControl("TextoBuscado"); });
    auto* const repetir = Nuevo<QAction>("FindNextOption", this);
    edicion->addAction(repetir);
    connect(repetir, &QAction::triggered, this, [this] { rejillas_->RepetirBusqueda(); });
    edicion->addSeparator();
    CrearMenuDeHallazgos(edicion);
    definiciones->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_D));
    estructuras->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P));
    datos->setShortcut(QKeySequence(Qt::Key_F7));
    buscar->setShortcut(QKeySequence::Find);
    repetir->setShortcut(QKeySequence(Qt::Key_F3));
    definiciones->setIcon(IconoDeTema("definitions"));
    estructuras->setIcon(IconoDeTema("preview"));
    datos->setIcon(IconoDeTema("data-preview"));
    buscar->setIcon(IconoDeTema("find"));
}

// Text boxes take these keys themselves; here they are shown. The box keeps the keyboard, and no cell is left.
void Principal::CrearPortapapeles(QMenu* edicion) {
    const auto nueva = [&](const char* nombre, QKeySequence::StandardKey tecla, const std::function<void(QWidget*)>& accion) {
        auto* const deEdicion = Nuevo<QAction>(nombre, this);
        edicion->addAction(deEdicion);
        deEdicion->setShortcut(tecla);
        deEdicion->setShortcutContext(Qt::WidgetShortcut);
        connect(deEdicion, &QAction::triggered, this, [this, accion] { accion(focusWidget()); });
    };
    nueva("CutOption", QKeySequence::Cut, [](QWidget* control) {
        if (auto* const linea = qobject_cast<QLineEdit*>(control)) linea->cut();
        if (auto* const texto = qobject_cast<QPlainTextEdit*>(control)) texto->cut();
    });
    nueva("CopyOption", QKeySequence::Copy, [](QWidget* control) {
        if (auto* const celda = qobject_cast<CeldaDeRejilla*>(control)) return celda->Copiar();
        if (auto* const linea = qobject_cast<QLineEdit*>(control)) linea->copy();
        if (auto* const texto = qobject_cast<QPlainTextEdit*>(control)) texto->copy();
    });
    nueva("PasteOption", QKeySequence::Paste, [](QWidget* control) {
        if (auto* const linea = qobject_cast<CajaDeLinea*>(control)) linea->PegarDelPortapapeles();
        if (auto* const texto = qobject_cast<QPlainTextEdit*>(control)) texto->paste();
    });
}

void Principal::CrearMenuDeFilas(QMenu* edicion) {
    auto* const filas = Nuevo<QMenu>("RowsOption", this);
    edicion->addMenu(filas);
    auto* const copiar = NuevaAccion("CopyRowsOption", filas, [this] {
        if (const auto* const celda = CeldaActual()) {
            QApplication::clipboard()->setText(TextoQt(CopiarFilas(ventana_, celda->Lugar())));
        }
    });
    filas->addSeparator();
    auto* const enBlanco = NuevaAccion("InsertBlankOption", filas, [this] { TeclaDelMenu(Tecla::MayusF5); });
    auto* const insertar = NuevaAccion("InsertOption", filas, [this] { TeclaDelMenu(Tecla::F5); });
    auto* const borrar = NuevaAccion("DeleteOption", filas, [this] { TeclaDelMenu(Tecla::F6); });
    filas->addSeparator();
    auto* const subir = NuevaAccion("UpOption", filas, [this] { UpButton(ventana_); });
    auto* const bajar = NuevaAccion("DownOption", filas, [this] { DownButton(ventana_); });
    const auto mover = [this](int paso) {
        if (const auto* const celda = CeldaActual()) MoverTransaccion(ventana_, celda->Lugar(), paso);
    };
    auto* const subirFila = NuevaAccion("RowUpOption", filas, [mover] { mover(-1); });
    auto* const bajarFila = NuevaAccion("RowDownOption", filas, [mover] { mover(1); });
    filas->addSeparator();
    auto* const quitar = NuevaAccion("RemoveBlankOption", filas, [this] { RemoveBlankOption(ventana_); });
    copiar->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    // The cells take these keys themselves; here they are shown.
    enBlanco->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F5));
    insertar->setShortcut(QKeySequence(Qt::Key_F5));
    borrar->setShortcut(QKeySequence(Qt::Key_F6));
    // Of each two with the same key, one at most is on.
    for (auto* const hacia : {subir, subirFila}) hacia->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Up));
    for (auto* const hacia : {bajar, bajarFila}) hacia->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Down));
    quitar->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_B));
    subir->setIcon(IconoDeTema("up"));
    bajar->setIcon(IconoDeTema("down"));
    lazos_.AlMostrar([this, subirFila, bajarFila] {
        const bool enPrograma = ventana_.foco && TablaDe(ventana_.foco->columna) == Tabla::Transaccion;
        for (auto* const accion : {subirFila, bajarFila}) accion->setEnabled(enPrograma);
    });
}

// What belongs to the row of the cell.
void Principal::CrearAccionesDeFila(QMenu* edicion) {
    const auto deLaCelda = [this](const char* nombre, QMenu* menu, const QKeySequence& tecla,
                                  const std::function<void(LugarDeCelda)>& accion) {
        auto* const nueva = NuevaAccion(nombre, menu, [this, accion] {
            if (const auto* const celda = CeldaActual()) accion(celda->Lugar());
        });
        nueva->setShortcut(tecla);
        return nueva;
    };
    auto* const nota = deLaCelda("NoteOption", edicion, QKeySequence(Qt::CTRL | Qt::Key_T), [this](LugarDeCelda celda) {
        const bool deArchivo = TablaDe(celda.columna) == Tabla::Archivo;
        const LugarDeCelda lugar{deArchivo ? Columna::Ancho : Columna::Campo, celda.linea};
        if (const auto fila = DobleClicEnCelda(ventana_, lugar)) ClicNotas(*fila);
    });
    auto* const codigo = deLaCelda("CodeOption", edicion, QKeySequence(Qt::CTRL | Qt::Key_K), [this](LugarDeCelda celda) {
        if (const auto fila = ClicEnABAP(ventana_, celda.linea)) ClicCodigo(*fila);
    });
    auto* const irAlCampo = deLaCelda("GoToFieldOption", edicion, QKeySequence(Qt::CTRL | Qt::Key_J), [this](LugarDeCelda celda) {
        const auto fila = CampoDelValor(ventana_, celda);
        if (!fila) return ventana_.vista.Informar(Componer(ventana_.textos, {449}));
        MostrarCelda(ventana_, Columna::CampoDeArchivo, *fila);
    });
    lazos_.AlMostrar([this, nota, codigo, irAlCampo] {
        const bool deArchivo = ventana_.foco && TablaDe(ventana_.foco->columna) == Tabla::Archivo;
        const bool conNombre = ventana_.foco && TieneNombre(ventana_, *ventana_.foco);
        nota->setEnabled(conNombre);
        codigo->setEnabled(deArchivo && conNombre);
        irAlCampo->setEnabled(ventana_.foco && !deArchivo);
    });
    // The conditions are open to all of the form, and at the row's own where it has one.
    NuevaAccion("ConditionOption", edicion, [this] {
        const auto* const celda = CeldaActual();
        const auto condicion = celda == nullptr ? std::nullopt : CondicionDeFila(ventana_, celda->Lugar());
        if (!condicion) return ClicCondiciones();
        const Destino destino{Destino::Clase::Condiciones, Columna::Programa, *condicion, {}, 0};
        ClicCondiciones(&destino);
    })->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    NuevaAccion("MissingFieldsOption", edicion, [this] {
        ClicCamposQueFaltan(true);
    })->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
}

// What the row of a cell can do; the cell has the keyboard.
void Principal::MenuDeCelda(LugarDeCelda lugar, const QPoint& punto) {
    const bool deArchivo = TablaDe(lugar.columna) == Tabla::Archivo;
    using Nombres = std::vector<const char*>;
    const std::vector<Nombres> grupos = {
        {"CutOption", "CopyOption", "PasteOption"},
        {"CopyRowsOption", "InsertBlankOption", "InsertOption", "DeleteOption"},
        deArchivo ? Nombres{"UpOption", "DownOption"} : Nombres{"RowUpOption", "RowDownOption"},
        deArchivo ? Nombres{"NoteOption", "CodeOption"} : Nombres{"NoteOption", "ConditionOption", "GoToFieldOption"}};
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("MenuDeCelda"));
    QString usadas;
    for (const auto& grupo : grupos) {
        for (const char* const nombre : grupo) {
            auto* const accion = controles_.Buscar<QAction>(nombre);
            const QString tecla = accion->shortcut().toString(QKeySequence::NativeText);
            auto* const aqui = menu.addAction(ConLetraLibre(SinLetra(accion->text()), usadas) + QLatin1Char('\t') + tecla);
            aqui->setEnabled(accion->isEnabled());
            connect(aqui, &QAction::triggered, accion, &QAction::trigger);
        }
        menu.addSeparator();
    }
    menu.exec(punto);
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
    auto* const queEsEsto = Nuevo<QAction>("WhatsThisOption", this);
    ayuda->addAction(queEsEsto);
    queEsEsto->setShortcut(QKeySequence::WhatsThis);
    connect(queEsEsto, &QAction::triggered, this, [] { QWhatsThis::enterWhatsThisMode(); });
    auto* const ejemplos = NuevaAccion("ScreenCam", ayuda, [this] { AbrirEjemplo(); });
    ejemplos->setVisible(!DirectorioDeEjemplos(programa_.directorioDeDatos).empty());
    ayuda->addSeparator();
    NuevaAccion("AboutOption", ayuda, [this] { MostrarPresentacion(); });
}

void Principal::ElegirYAbrir() {
    if (!DejarDocumento(ventana_)) return;
    const auto ruta = vista_->ElegirParaAbrir({ClaseDeArchivo::Documento, filtroDeDocumentos});
    if (ruta) Abrir(*ruta);
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
