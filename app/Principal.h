#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/autosave.h"
#include "app/connection_actions.h"
#include "app/findings_watch.h"
#include "app/pages/controls.h"
#include "app/pages/page.h"
#include "app/qt/screen_view.h"
#include "app/start_up.h"
#include "base/qt/dialog.h"
#include "editor/cell_keys.h"
#include "editor/help_pages.h"
#include "editor/window.h"
#include "generator/request.h"
#include "model/input_place.h"

class QAction;
class QLabel;
class QMenu;
class QStackedWidget;
class QTimer;

namespace qor {

class CeldaDeRejilla;
class DivisionConPaneles;
struct EjemploIncluido;
class FilaDeSalida;
class FormEnsayo;
class PaginaDeHerramientas;
class PaginaDeInicio;
class PaginaDeOpciones;
class PaginaDeRejillas;
class PanelDeEstructuras;
class PanelDeHallazgos;
class Pestanas;
class VentanaDeAyuda;

// The main form: window, menus, tool bar, status bar, dialogs, start and end; its pages are widgets of their own (app/pages/). It
// shows the state of its window, passes events to the core, and shows the state anew behind each of them. Every control bears its
// name as object name; a control of an array is named with its index, such as Text1_0.
class Principal : public QMainWindow {
    Q_OBJECT
public:
    // The program outlives the form. Without a factory there are no connections.
    Principal(Programa& programa, std::unique_ptr<VistaDePantalla> vista, const FabricaDeConexion& fabrica = {});
    ~Principal() override;

    Ventana& LaVentana() { return ventana_; }

    // What follows on the first showing: opening box, language, the document named at the start, logon.
    void ActivarPorPrimeraVez(const Arranque& arranque);

    // Shows the window's state in all controls.
    void Sincronizar();
    void RefrescarIdioma();
    // A help page, in a window that belongs to the dialog that asks for it.
    void MostrarAyuda(const PaginaDeAyuda& pagina, QWidget* ventana = nullptr);

    // Ends the event loop with a status, without any question.
    void TerminarCon(int estado);

protected:
    void closeEvent(QCloseEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void changeEvent(QEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    // ---- Principal.cpp ----
    void Construir();
    void CrearPaginas();
    void CrearEstado();
    void RestaurarVentana();
    void GuardarVentana() const;
    // Runs an event: core functions behind the failure trap, then everything is shown anew.
    void Hacer(const std::function<void()>& accion);
    // Runs a command, which first leaves the cell that has the focus (editor/commands.h). False when it was not begun.
    bool Mandar(const std::function<void()>& accion);
    // Saves the settings that the user has just chosen; tells once where that fails, until it succeeds again.
    void GuardarAjustes();
    void EnfocarControl(const std::string& nombre);
    void AplicarReglas();
    void MostrarConexion();
    void MostrarTitulo();
    CeldaDeRejilla* CeldaActual() const;

    // Copies of unsaved work: kept up to date in the course of time, and offered at the start when they were left behind. True when
    // one was restored; it then stands in the place of a document named at the start.
    void CuidarTrabajo();
    bool OfrecerTrabajo();
    // What the first activation does behind the opening box.
    void SeguirActivacion(const PrimeraActivacion& plan);

    // ---- PrincipalAyuda.cpp: F1 and What's this? ----
    VentanaDeAyuda& VentanaPropiaDeAyuda();
    VentanaDeAyuda& VentanaDeAyudaPara(QWidget* ventana);
    void CrearTeclasDeAyuda();
    void AyudaDelControl();
    void MostrarAyudaDe(const QWidget* control);
    bool QueEsEsto(const QWidget& control, QEvent& evento);
    bool AyudaDelDialogo(QWidget& control);

    // ---- PrincipalMenus.cpp ----
    void CrearMenus();
    void CrearMenuDeArchivo();
    void CrearMenuDeEdicion();
    void CrearPortapapeles(QMenu* edicion);
    void CrearMenuDeFilas(QMenu* edicion);
    void CrearAccionesDeFila(QMenu* edicion);
    void MenuDeCelda(LugarDeCelda lugar, const QPoint& punto);
    void CrearOtrosMenus();
    void CrearBarra();
    QMenu* NuevoMenu(const char* nombre);
    QAction* NuevaAccion(const char* nombre, QMenu* menu, const std::function<void()>& accion);
    void TeclaDelMenu(Tecla tecla);
    // Asks which document to open, and opens it.
    void ElegirYAbrir();

    // ---- PrincipalDialogos.cpp ----
    AbrirAyuda Ayuda();
    PedidoDeGeneracion Pedido(Vista& vista);
    void ClicGenerar();
    void ClicImprimir();
    void ClicNotas(FilaDeTabla fila);
    // A dialog opens at the place that a finding leads to, where there is one.
    void ClicCodigo(int fila, const Destino* destino = nullptr);
    void ClicCondiciones(const Destino* destino = nullptr);
    void ClicDefiniciones(const Destino* destino = nullptr);
    void ClicOrigen(const Destino* destino = nullptr);
    void ClicPreview();
    // The preview of the data, of a file or of the one that the document leads to.
    void ClicDatos(const std::filesystem::path& archivo = {});
    // The preview, at a place in the files, above a window. `recordado` tells the files by their parameters.
    void VerDatos(const std::function<std::filesystem::path(const std::string& parametro)>& recordado,
                  const std::filesystem::path& archivo, const std::optional<LugarDeEntrada>& lugar, QWidget* ventana);
    void MostrarEstructuras(const std::string& texto, QWidget* ventana);
    void ClicAgregarOperacion();
    // Offers the fields that the file side lacks; where there are none, says so if asked.
    void ClicCamposQueFaltan(bool pedido);
    void NavegarBAPIs(QWidget* ventana, bool soloDefinicion, int fila);
    std::filesystem::path DirectorioDeCatalogos() const;
    void ClicEditorBDC(const std::filesystem::path& archivo = {});
    void ClicDirectorios();
    void ClicSeleccionarIdioma();
    void MostrarPresentacion();
    void PreguntarIdioma();
    void CargarIdioma(std::string_view nombre);

    // ---- PrincipalInicio.cpp: the start page, documents that were open before, files that are dropped ----
    PaginaDeInicio* NuevoInicio(QWidget* padre);
    // Once there is something to work on the start page goes, whatever brought that.
    bool HayTrabajo() const;
    void MostrarInicio();
    void OcultarInicio();
    void AnotarReciente();
    void CrearMenuDeRecientes(QMenu* archivo);
    void AbrirReciente(const std::filesystem::path& documento);
    // Opens a document; the next one is looked for in its directory.
    void Abrir(const std::filesystem::path& documento);
    void MostrarElComienzo();
    bool RecibirSoltado(QEvent& evento);
    void RecibirArchivo(const std::filesystem::path& archivo);
    void ImportarArchivo(const std::filesystem::path& archivo);

    // ---- PrincipalEnsayo.cpp ----
    void ClicEnsayo();
    void AbrirEjemplo();
    void AbrirCopia(const EjemploIncluido& ejemplo);
    void OfrecerConvenciones(const std::filesystem::path& carpeta);

    // ---- PrincipalHallazgos.cpp: the panes of findings and structures ----
    QWidget* ConPanelesDeAbajo(QWidget* paginas);
    void CrearMenuDeHallazgos(QMenu* menu);
    // Called behind everything that may have changed the document: begins the pause behind which the document is analysed.
    void VigilarHallazgos();
    // The pause is over. While something is open that must not be disturbed, another one begins.
    void MirarTrasLaPausa();
    void MirarHallazgos();
    MateriaDeHallazgos MateriaDeLaVentana() const;
    void MostrarHallazgos();
    void EncenderHallazgos(bool encendido);
    // The pane of the structures beside it.
    void EncenderEstructuras(bool encendidas);
    void MostrarPanelDeEstructuras();
    void HallazgosTrasGenerar(const FinDeGeneracion& fin);
    void IrAVecino(int paso);
    void IrAHallazgo(int hallazgo);
    void IrA(const Destino& destino);
    void AyudaDelHallazgo();

    Programa& programa_;
    std::unique_ptr<VistaDePantalla> vista_;
    Documento abierto_;
    Ventana ventana_;
    CopiasDeTrabajo copias_;
    std::unique_ptr<AccionesDeConexion> conexion_;
    std::filesystem::path catalogoDePractica_;  // which an update has made; empty where there was none

    Lazos lazos_;
    Controles controles_;
    bool cerrado_ = false;
    bool sinGuardarAvisado_ = false;

    std::filesystem::path anotado_;  // the document that was noted last among the recent ones

    QStackedWidget* centro_ = nullptr;  // the work, or the start page
    PaginaDeInicio* inicio_ = nullptr;
    Pestanas* SSTab1_ = nullptr;
    Pestanas* SSTab2_ = nullptr;
    PaginaDeRejillas* rejillas_ = nullptr;
    PaginaDeOpciones* opciones_ = nullptr;
    PaginaDeHerramientas* herramientas_ = nullptr;
    FilaDeSalida* salida_ = nullptr;
    QLabel* documento_ = nullptr;
    QLabel* ConnectionStatus_ = nullptr;
    int imagenDeDefiniciones_ = -1;
    VentanaDeAyuda* ayuda_ = nullptr;

    std::unique_ptr<FormEnsayo> ensayo_;

    VigiaDeHallazgos vigia_;
    QTimer* pausa_ = nullptr;
    PanelDeHallazgos* hallazgos_ = nullptr;
    PanelDeEstructuras* estructuras_ = nullptr;
    DivisionConPaneles* division_ = nullptr;
};

}  // namespace qor
