#pragma once

#include <optional>

#include "bapi/catalogue.h"
#include "bapi/insertion.h"
#include "bapi/search.h"
#include "base/qt/dialog.h"
#include "sap/session.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace qor {

class CajaDeLectura;
class CajaDeLinea;

// What the browser works with. What is referred to outlives it.
struct EntornoDeBAPI {
    std::filesystem::path& ArchivoBAPI;  // the catalogue in use; an update puts another one in its place
    std::filesystem::path directorio;    // where an update writes
    SesionSAP* sesion = nullptr;         // null where there are no connections
    bool SoloDefinicion = false;         // only declarations and the call text are wanted
    int FilaInsercion = -1;              // row of the head
    // Prints a documentation. Without it the button is disabled.
    std::function<void(const std::string& nombre, const std::string& documentacion, QWidget* ventana)> imprimir;
};

// The catalogue of BAPIs as a tree, with two kinds of search; OK inserts the selected one. An update of the catalogue runs in the
// open dialog and can be stopped.
class FormBAPI : public Dialogo {
    Q_OBJECT
public:
    FormBAPI(Documento& documento, const TextosIdioma& textos, Vista& vista, EntornoDeBAPI entorno, QWidget* padre);
    ~FormBAPI() override;

protected:
    void showEvent(QShowEvent* evento) override;
    // During an update, asks whether to stop it.
    bool PuedeCerrar() override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void CrearControles();
    QLayout* CrearBusqueda();
    QLayout* CrearCatalogo();
    QLayout* CrearActualizacion();
    void Abrir();
    bool Recuperar();
    void LlenarArbol();
    const NodoBAPI* NodoElegido() const;
    void MostrarNodo();
    void NuevaBusqueda();
    void BuscarSiguiente();
    void Aceptar();
    void Imprimir();
    void Actualizar();
    void Cancelar();
    void ConfigurarActualizacionEnProgreso(bool enProgreso);

    Documento& documento_;
    Vista& vista_;
    EntornoDeBAPI entorno_;
    CatalogoBAPI catalogo_;
    std::optional<BusquedaBAPI> busqueda_;
    std::vector<QTreeWidgetItem*> ramas_;  // by number of the node
    bool nuevaBusqueda_ = true;
    bool abierto_ = false;
    bool enProgreso_ = false;
    bool CancelarActualizacion_ = false;

    QLabel* InformationText_ = nullptr;
    QTreeWidget* Arbol_ = nullptr;
    CajaDeLectura* TextoNodo_ = nullptr;
    CajaDeLinea* TextoBuscar_ = nullptr;
    QPushButton* Buscar_ = nullptr;
    QRadioButton* SubCadenaOption_ = nullptr;
    QRadioButton* PalabrasOption_ = nullptr;
    QLabel* FechaGeneracion_ = nullptr;
    QLabel* VersionSAP_ = nullptr;
    QPushButton* ImprimirButton_ = nullptr;
    QPushButton* ButtonUpdate_ = nullptr;
    QPushButton* ButtonCancelUpdate_ = nullptr;
    QProgressBar* UpdateProgress_ = nullptr;
    QLabel* LabelUpdate_ = nullptr;
    QPushButton* OK_ = nullptr;
    QPushButton* Cancel_ = nullptr;
};

}  // namespace qor
