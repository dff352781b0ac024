#pragma once

#include <QTimer>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "app/rehearsal.h"
#include "base/qt/dialog.h"
#include "model/document.h"

class QLabel;
class QMenu;
class QProgressBar;
class QPushButton;
class QSplitter;
class QToolButton;

namespace qor {

class ArbolDeEnvios;
class PanelDePedido;
class PanelDeRegistros;
class PestanasDeResultado;

// What the rehearsal asks of the main form.
struct EntornoDeEnsayo {
    const TextosIdioma& textos;
    Vista& vista;
    const Documento& documento;
    std::function<PedidoDeGeneracion(Vista&)> generacion;
    // What every practice system of the user is made of; in memory.
    std::function<OpcionesDeSistema()> sistema;
    // The file of the user's own practice system, with its directory made.
    std::function<std::filesystem::path()> archivoPropio;
    // Runs a command of the main form: the cell that is being edited there is left first.
    std::function<bool(const std::function<void()>&)> mandar;
    // The file that was chosen for a parameter, such as FILE or SLOOP_1, the last time, and what is chosen now.
    std::function<std::filesystem::path(const std::string& parametro)> recordado;
    std::function<void(const std::string& parametro, const std::filesystem::path& archivo)> recordar;
    // Brings the main form to the front, with the cell in the focus.
    std::function<void(const Lugar&)> irA;
    // Shows a place in the input files, above a window. The files are those of DisenoDeEntrada::Archivos.
    std::function<void(const std::vector<std::filesystem::path>& archivos, const LugarDeEntrada& lugar, QWidget* ventana)>
        verDatos = {};
    // The folder of the value lists of the user's own practice system.
    std::filesystem::path valoresPropios = {};
    AbrirAyuda ayuda;
    std::filesystem::path memoria = {};  // the file that remembers windows; empty for none
};

// The rehearsal: the report of the document runs on the practice system, and what it does with each record is looked at. The window
// stands beside the main form, which can be worked on while it runs.
class FormEnsayo : public Dialogo {
    Q_OBJECT
public:
    explicit FormEnsayo(EntornoDeEnsayo entorno);
    ~FormEnsayo() override;

    // The document may be another one, or have other input files.
    void MirarDocumento();
    // An input file that was chosen elsewhere.
    void TomarArchivo(const std::string& parametro, const std::filesystem::path& ruta);
    // In front of all windows.
    void Traer();
    bool Corriendo() const { return hilo_.joinable(); }

protected:
    // A run that is under way is stopped.
    bool PuedeCerrar() override;

private:
    QLayout* CrearMando();
    QWidget* CrearVista();
    void CrearTeclas();
    void OrdenarFoco();

    void PonerDocumento();
    void PonerArchivos();

    void Correr();
    bool LeerPedido(PedidoDeEnsayo& pedido);
    void Empezar(PedidoDeEnsayo pedido);
    void Detener();
    void MirarAvance();
    void Terminar();
    void MostrarResultado(const ResultadoDeEnsayo* resultado);
    void MostrarRegistro();
    // The preview at a place in the input files.
    void VerEntrada(const std::optional<LugarDeEntrada>& lugar);
    void VerFallo(std::size_t fallo);
    void VerRegistro(std::size_t registro);
    void VerLoElegido();
    void PonerEstado(const QString& texto);
    void Habilitar();

    void LlenarExportar();
    // The name of what is exported, with an ending behind that of the document.
    std::filesystem::path Sugerido(const std::string& final) const;
    void Exportar(const PedidoDeArchivo& pedido, const std::function<void(const std::filesystem::path&)>& accion);
    bool Escribir(const std::function<void()>& accion);
    bool PuedenReemplazarse(const std::vector<std::filesystem::path>& archivos);
    void ExportarFallados();

    EntornoDeEnsayo entorno_;
    std::filesystem::path documento_;      // the one whose files are shown
    std::vector<std::string> parametros_;  // of its input files
    std::uint64_t revision_ = 0;
    bool recuperado_ = false;  // the window has the place that it had before
    std::unique_ptr<Ensayo> ensayo_;
    std::optional<FalloDeMensaje> falloDelHilo_;
    std::atomic<bool> listo_{false};
    std::jthread hilo_;  // goes before what it works with
    std::chrono::steady_clock::time_point comienzo_;
    QTimer reloj_;

    PanelDePedido* pedido_ = nullptr;
    QPushButton* correr_ = nullptr;
    QPushButton* detener_ = nullptr;
    QProgressBar* avance_ = nullptr;
    QLabel* estado_ = nullptr;
    QPushButton* ajustes_ = nullptr;
    QPushButton* exportar_ = nullptr;
    QMenu* menuDeExportar_ = nullptr;
    QPushButton* ayuda_ = nullptr;
    QPushButton* cerrar_ = nullptr;
    PanelDeRegistros* registros_ = nullptr;
    QLabel* titulo_ = nullptr;
    ArbolDeEnvios* envios_ = nullptr;
    PestanasDeResultado* resultado_ = nullptr;
};

}  // namespace qor
