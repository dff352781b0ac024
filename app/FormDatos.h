#pragma once

#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "base/files.h"
#include "base/line_index.h"
#include "base/qt/dialog.h"
#include "editor/window.h"
#include "input/kinds.h"
#include "input/layout.h"
#include "input/preview_check.h"
#include "input/preview_findings.h"
#include "input/preview_rows.h"
#include "input/qt/data_findings_pane.h"

class QGroupBox;
class QLineEdit;
class QTabBar;

namespace qor {

class ModeloDeRegistros;
class PanelDeClase;
class ReglaDeLinea;
class TablaDeRegistros;

// What the preview asks of the main form.
struct EntornoDeDatos {
    AbrirAyuda ayuda;
    // The file that was chosen for a parameter, such as FILE or SLOOP_1, the last time, and what is chosen now.
    std::function<std::filesystem::path(const std::string& parametro)> recordado;
    std::function<void(const std::string& parametro, const std::filesystem::path& archivo)> recordar;
    std::filesystem::path directorio;  // where a file is looked for first
    std::function<void()> alCambiar;   // the document was changed here
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

protected:
    bool PuedeCerrar() override;

private:
    struct ArchivoVisto {
        std::string parametro;
        std::filesystem::path ruta;
        std::shared_ptr<IndiceDeLineas> indice;
        std::optional<IdentidadDeArchivo> identidad;
        std::jthread contador;  // goes before the index
        QString fallo;          // why it is not open
    };

    // ---- Controls ----
    QLayout* CrearCabeza();
    QWidget* CrearVacio();
    QWidget* CrearVista();
    QLayout* CrearPie();
    void CrearTeclas();
    void OrdenarFoco();

    // ---- Files ----
    void ElegirRutas(const std::filesystem::path& principal);
    void Abrir(ArchivoVisto& archivo);
    void MostrarArchivo(int archivo);
    void ElegirArchivo();
    void Recargar();
    void Mirar();
    ArchivoVisto& Archivo() { return archivos_.at(static_cast<std::size_t>(archivo_)); }

    // ---- The document ----
    void LeerDiseno();
    bool LadoVacio() const;
    void Editar(const std::function<void()>& accion);
    void TrasCambio();
    void PonerAncho(int campo, std::uint64_t ancho);
    void LlenarDeCabecera();
    void LlenarDeMarcas();
    void DeshacerPaso();

    // ---- Kinds of fields ----
    void LeerClases();
    void CambiarClase();
    bool GuardarClases();

    // ---- Findings ----
    void EmpezarRevision();
    void MostrarRevision();
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
    std::vector<ArchivoVisto> archivos_;
    int archivo_ = 0;
    int pasos_ = 0;  // steps to undo that were made here
    ClasesDeCampos clases_;
    bool clasesCambiadas_ = false;
    QString falloDeClases_;  // why those beside the document can't be used
    HallazgosVistos hallazgos_;
    std::unique_ptr<RevisionEnFondo> revision_;
    PanelDeHallazgosDeDatos::Estado estado_;
    QTimer reloj_;  // looks what the threads have found
    QTimer pausa_;  // behind a change, until the files are checked anew
    int miradas_ = 0;

    QTabBar* pestanas_ = nullptr;
    QLineEdit* ruta_ = nullptr;
    QLineEdit* linea_ = nullptr;
    QLabel* estadoDeLineas_ = nullptr;
    QWidget* vacio_ = nullptr;
    ModeloDeRegistros* modelo_ = nullptr;
    TablaDeRegistros* tabla_ = nullptr;
    ReglaDeLinea* regla_ = nullptr;
    PanelDeClase* clase_ = nullptr;
    QWidget* lado_ = nullptr;
    PanelDeHallazgosDeDatos* panel_ = nullptr;
    QPushButton* mostrarLado_ = nullptr;
    QPushButton* guardarClases_ = nullptr;
    QPushButton* deCabecera_ = nullptr;
    QPushButton* deMarcas_ = nullptr;
    QPushButton* deshacer_ = nullptr;
};

}  // namespace qor
