#pragma once

#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/qt/document_checks.h"
#include "base/qt/dialog.h"
#include "editor/window.h"
#include "input/layout.h"
#include "input/preview_files.h"
#include "input/preview_rows.h"
#include "model/input_place.h"

class QGroupBox;
class QLineEdit;
class QTabBar;

namespace qor {

class ModeloDeRegistros;
class PanelDeClase;
class ReglaDeLinea;
class RevisionDeDatos;
class TablaDeRegistros;

// What the preview asks of the main form.
struct EntornoDeDatos {
    AbrirAyuda ayuda;
    // The file that was chosen for a parameter, such as FILE or SLOOP_1, the last time, and what is chosen now.
    std::function<std::filesystem::path(const std::string& parametro)> recordado;
    std::function<void(const std::string& parametro, const std::filesystem::path& archivo)> recordar;
    std::filesystem::path memoria = {};    // the file that remembers windows; empty for none
    std::function<void()> alCambiar = {};  // the document was changed here
};

// The preview of the data: the input files of any size split by the specification, what a check of them finds, and the line as it
// is with a ruler over it. The widths of the fields are changed here, an empty file side is filled, and what is said of the values
// of fields is kept beside the document.
class FormDatos : public Dialogo {
    Q_OBJECT
public:
    // The records have to come from files (DisenoDeEntrada::HayArchivo). `principal` is the file of the main records, empty for the
    // one that the document or the user's last choice leads to.
    FormDatos(Ventana& ventana, EntornoDeDatos entorno, const std::filesystem::path& principal, QWidget* padre);
    ~FormDatos() override;

    // Shows a place in the input files, also one that is not counted yet.
    void IrA(const LugarDeEntrada& lugar);

protected:
    bool PuedeCerrar() override;

private:
    // ---- Controls ----
    QLayout* CrearCabeza();
    QWidget* CrearVacio();
    QWidget* CrearVista();
    QLayout* CrearPie();
    void CrearTeclas();
    void OrdenarFoco();

    // ---- Files ----
    void ElegirRutas(const std::filesystem::path& principal);
    void MostrarArchivo(int archivo);
    void ElegirArchivo();
    // The file that is shown may be another one by now: it is opened and counted anew.
    void Abrir(const std::filesystem::path& ruta);
    void Mirar();
    ArchivoVisto& Archivo() { return *archivos_.at(static_cast<std::size_t>(archivo_)); }

    // ---- The document ----
    void LeerDiseno();
    bool LadoVacio() const;
    void Editar(const std::function<void()>& accion);
    void TrasCambio();
    void PonerAncho(int campo, std::uint64_t ancho);
    void DeshacerPaso();

    // ---- Kinds of fields ----
    void CambiarClase();

    // ---- Findings ----
    void EmpezarRevision();
    // A place in a file; its first line for line 0.
    void IrA(int archivo, std::uint64_t linea, int fila);
    void IrAHallazgo(int hallazgo);
    void IrAVecino(int paso);

    void MostrarActual();
    void MostrarEstado();
    void Habilitar();
    std::string CampoActual() const;
    TramoDeLinea TramoActual() const;

    Ventana& ventana_;
    EntornoDeDatos entorno_;
    std::shared_ptr<const DisenoDeEntrada> diseno_;
    ControlesDelDocumento controles_;
    std::vector<std::unique_ptr<ArchivoVisto>> archivos_;
    int archivo_ = 0;
    struct Pedido {
        int archivo;
        std::uint64_t linea;
        int fila;
    };
    std::optional<Pedido> pedido_;  // a line that is not counted yet
    bool cambiado_ = false;         // the file that is shown, since it was opened
    int pasos_ = 0;                 // steps to undo that were made here
    QTimer reloj_;                  // looks what the threads have found
    QTimer pausa_;                  // behind a change, until the files are checked anew
    int miradas_ = 0;

    QTabBar* pestanas_ = nullptr;
    QLineEdit* ruta_ = nullptr;
    QLineEdit* linea_ = nullptr;
    QLabel* estadoDeLineas_ = nullptr;
    QWidget* vacio_ = nullptr;
    RevisionDeDatos* revision_ = nullptr;
    ModeloDeRegistros* modelo_ = nullptr;
    TablaDeRegistros* tabla_ = nullptr;
    ReglaDeLinea* regla_ = nullptr;
    PanelDeClase* clase_ = nullptr;
    QWidget* lado_ = nullptr;
    QPushButton* mostrarLado_ = nullptr;
    QPushButton* guardarClases_ = nullptr;
    QPushButton* deCabecera_ = nullptr;
    QPushButton* deMarcas_ = nullptr;
    QPushButton* deshacer_ = nullptr;
};

}  // namespace qor
