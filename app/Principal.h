#pragma once

#include <QHash>
#include <QMainWindow>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "app/connection_actions.h"
#include "app/qt/grid_cell.h"
#include "app/qt/screen_view.h"
#include "app/start_up.h"
#include "base/qt/dialog.h"
#include "editor/editor.h"

class QAction;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QFrame;
class QGridLayout;
class QLabel;
class QMenu;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QTabWidget;
class QToolButton;

namespace qor {

class VentanaDeAyuda;

// The main form. It shows the state of its editor, passes events to the core, and shows the state anew behind each of them. Every
// control bears its name as object name; a control of an array is named with its index, such as Text1_0.
class Principal : public QMainWindow {
    Q_OBJECT
public:
    // The program outlives the form. Without a factory there are no connections.
    Principal(Programa& programa, std::unique_ptr<VistaDePantalla> vista, const FabricaDeConexion& fabrica = {});
    ~Principal() override;

    Editor& ElEditor() { return editor_; }

    // What follows on the first showing: opening box, language, the document named at the start, logon.
    void ActivarPorPrimeraVez(const LineaDeComandos& linea);

    // Shows the editor's state in all controls.
    void Sincronizar();
    void RefrescarIdioma();
    // A help page, in a window that belongs to the dialog that asks for it.
    void MostrarAyuda(int mensaje, QWidget* ventana = nullptr);

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
    void AplicarPaleta();
    void RestaurarVentana();
    void GuardarVentana() const;
    // Runs an event: core functions behind the failure trap, then everything is shown anew.
    void Hacer(const std::function<void()>& accion);
    void EnfocarControl(const std::string& nombre);
    void AyudaDelControl();
    void AplicarReglas();
    void AplicarConexion();
    template <typename T, typename... Argumentos>
    T* Nuevo(const char* nombre, Argumentos&&... argumentos) {
        auto* const control = new T(std::forward<Argumentos>(argumentos)...);
        control->setObjectName(QString::fromLatin1(nombre));
        controles_.insert(QByteArray(nombre), control);
        return control;
    }
    // A push button that runs an event and takes no focus from a cell when it is clicked.
    QPushButton* NuevoBoton(const char* nombre, QWidget* padre, const std::function<void()>& accion);

    // ---- PrincipalRejillas.cpp ----
    QWidget* CrearPaginaDeRejillas();
    QWidget* CrearRejillaArchivo(QWidget* padre);
    QWidget* CrearRejillaTransaccion(QWidget* padre);
    QWidget* CrearEdicion(QWidget* padre);
    QWidget* CrearOrigen(QWidget* padre);
    QWidget* CrearSalida(QWidget* padre);
    CeldaDeRejilla* CrearCelda(LugarDeCelda lugar, QWidget* padre);
    void SincronizarRejillas();
    void RepartirColumnas();
    void RepetirBusqueda();

    // ---- PrincipalOpciones.cpp, PrincipalHerramientas.cpp ----
    QWidget* CrearPaginaDeOpciones();
    QWidget* CrearOpcionesDeErrores();
    QWidget* CrearOpcionesDeEntrada();
    QWidget* CrearOpcionesDeNombres();
    QWidget* CrearContabilizacion(QWidget* padre);
    QWidget* CrearManejoDeErrores(QWidget* padre);
    QWidget* CrearTitulos(QWidget* padre);
    QWidget* CrearJuegoDeDatos(QWidget* padre);
    QWidget* CrearPaginaDeHerramientas();
    QWidget* CrearConexion(QWidget* padre);
    QWidget* CrearImportaciones(QWidget* padre);
    QWidget* CrearPaginaDeDocumentacion();
    // Ties a control to an option of the specification.
    QCheckBox* Casilla(const char* nombre, QWidget* padre, int Opciones::*opcion);
    std::array<QRadioButton*, 2> Par(const char* primero, const char* segundo, QWidget* padre, bool Opciones::*opcion);
    CajaDeLinea* Linea(const char* nombre, QWidget* padre, std::string Opciones::*opcion,
                       void (*cambiar)(Editor&, const std::string&) = nullptr);
    CajaDeTexto* Texto(const char* nombre, QWidget* padre, std::string Opciones::*opcion);
    QComboBox* Combo(const char* nombre, QWidget* padre, std::string Opciones::*opcion);
    // The same for a setting of the user's.
    QCheckBox* CasillaDeAjuste(const char* nombre, QWidget* padre, const std::function<bool()>& leer,
                               const std::function<void(bool)>& cambiar);
    void CrearEncoding(QWidget* padre, QGridLayout* orden);
    CajaDeLinea* CajaFiltrada(const char* nombre, QWidget* padre);

    // ---- PrincipalMenus.cpp ----
    void CrearMenus();
    void CrearBarra();
    QAction* NuevaAccion(const char* nombre, QMenu* menu, const std::function<void()>& accion);
    CeldaDeRejilla* CeldaActual() const;
    void PulsarEnCelda(Tecla tecla);
    void AbrirEjemplo();

    // ---- PrincipalIdioma.cpp ----
    void AplicarRotulos();
    void AplicarPalabras();

    // ---- PrincipalDialogos.cpp ----
    AbrirAyuda Ayuda();
    PedidoDeGeneracion Pedido();
    void ClicGenerar();
    void ClicImprimir();
    void ClicNotas(FilaDeTabla fila);
    void ClicCodigo(int fila);
    void ClicCondiciones();
    void ClicDefiniciones();
    void ClicOrigen();
    void ClicPreview();
    void MostrarEstructuras(const std::string& texto, QWidget* ventana);
    void ClicAgregarOperacion();
    void NavegarBAPIs(QWidget* ventana, bool soloDefinicion, int fila);
    void ClicEditorBDC();
    void ClicDirectorios();
    void ClicSeleccionarIdioma();
    void MostrarPresentacion();
    void PreguntarIdioma();
    void CargarIdioma(std::string_view nombre);

    Programa& programa_;
    std::unique_ptr<VistaDePantalla> vista_;
    Editor editor_;
    std::unique_ptr<AccionesDeConexion> conexion_;

    QHash<QByteArray, QObject*> controles_;
    std::vector<std::function<void()>> sincronias_;  // each shows one option
    bool sincronizando_ = false;
    bool cerrado_ = false;

    QTabWidget* SSTab1_ = nullptr;
    QTabWidget* SSTab2_ = nullptr;
    QLabel* documento_ = nullptr;
    QLabel* ConnectionStatus_ = nullptr;
    QGridLayout* columnasTransaccion_ = nullptr;
    std::vector<CeldaDeRejilla*> celdas_;
    std::array<QToolButton*, lineasArchivo> ABAP_{};
    QScrollBar* barraArchivo_ = nullptr;
    QScrollBar* barraTransaccion_ = nullptr;
    QFrame* marcoArchivo_ = nullptr;
    QFrame* marcoTransaccion_ = nullptr;
    int restoDeRueda_ = 0;
    bool ultimaBusquedaEnArchivo_ = true;
    int expandido_ = -1;  // state for which the columns were laid out
    OpcionEncoding encoding_ = OpcionEncoding::Default;
    int imagenDeDefiniciones_ = -1;
    VentanaDeAyuda* ayuda_ = nullptr;
};

}  // namespace qor
