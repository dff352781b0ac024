#include "app/qt/sap_actions.h"

#include <string>
#include <utility>

#include "app/findings_watch.h"
#include "app/practice_file.h"
#include "app/publish_question.h"
#include "app/qt/connection_memory.h"
#include "app/qt/practice_actions.h"
#include "app/sap_connection.h"
#include "app/show_changes.h"
#include "base/paths.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "sap/FormABAP.h"
#include "sap/FormImport.h"
#include "sap/FormLogon.h"
#include "sap/connected_system.h"
#include "sap/nwrfc_library.h"
#include "sap/publish.h"
#include "sap/queue_choice.h"
#include "sap/widths.h"

namespace qor {

namespace {

class ConexionDelPrograma : public AccionesDeConexion {
public:
    explicit ConexionDelPrograma(const EntornoDeConexion& entorno)
        : e_(entorno),
          sesion_(NuevaSesionSAP(
              e_.programa.ajustes, e_.programa.directorioDeDatos,
              [this](EleccionDeLogon& eleccion) { return PedirLogon(eleccion); }, [this] { return OpcionesDePractica(); })),
          sistema_(
              e_.ventana.documento, sesion_, TrasPreguntar([this] {
                  return ContarErrores({e_.ventana.documento, e_.programa.ajustes.preferencias, e_.programa.textos, true});
              }),
              [this] { MostrarAnchos(e_.ventana); }, e_.programa.textos, e_.vista) {}

    bool Disponible() const override {
        EleccionDeLogon ultima;
        RecuperarConexion(MemoriaDeConexion(), ultima);
        if (ultima.practica) return true;
        try {
            nwrfc::Biblioteca::Cargar(e_.programa.ajustes.BibliotecaRFC);
            return true;
        } catch (const FalloDelServicio&) {
            return false;
        }
    }
    bool Conectado() const override { return sesion_.Conectado; }
    bool EsDePractica() const override { return sesion_.EsDePractica(); }
    std::string ConnectionStatus() const override { return sesion_.ConnectionStatus; }

    void Logon() override {
        const auto opciones = OpcionesDeLogonDe(e_.programa.ajustes);
        if (!Logon_Click(sesion_, opciones, e_.programa.ajustes.preferencias, e_.programa.textos, e_.vista)) return;
        e_.mostrar();
        if (!ImportarTrasLogon(opciones, e_.ventana.documento.HayCambios(), e_.ventana.documento.Bloqueado())) return;
        // A new practice system has none yet.
        if (!sesion_.EsDePractica() || HayGrabacion(RutaDePracticaPropia())) ButtonOnlineSHDB();
    }
    void Logoff() override { Logoff_Click(sesion_); }

    void ButtonOnlineSHDB() override {
        const bool practica = sesion_.EsDePractica() && SesionActiva(sesion_);
        if (practica && !HayGrabacion(RutaDePracticaPropia())) return AvisarSinGrabaciones(e_.programa.textos, e_.vista);
        Tomar(qor::ButtonOnlineSHDB(e_.ventana.documento.especificacion, DialogoDeColas(), e_.programa.textos, e_.vista));
    }
    void ButtonOnlineSM35() override {
        Tomar(qor::ButtonOnlineSM35(e_.ventana.documento.especificacion, DialogoDeColas(), e_.programa.textos, e_.vista));
    }
    void ButtonOnlineAnchos() override {
        if (!qor::ButtonOnlineAnchos(e_.ventana.documento, sesion_, e_.programa.textos, e_.vista)) return;
        MostrarAnchos(e_.ventana);
        if (sesion_.EsDePractica()) {
            AvisarAnchosDesconocidos(e_.ventana.documento.especificacion, DirectorioDeAjustes() / nombreDeDiccionario,
                                     e_.programa.textos, e_.vista);
        }
    }
    void ButtonOnlinePublish() override {
        qor::ButtonOnlinePublish(sesion_, e_.programa.generador.UltimoPrograma,
                                 TrasPreguntar([this] { return e_.programa.erroresDelReporte; }), e_.programa.textos, e_.vista);
    }
    void ButtonOnlinePublishLocal() override {
        qor::ButtonOnlinePublishLocal(sesion_, DialogoDelNombre(), e_.programa.textos, e_.vista);
    }

    void GuardarGrabacion() override {
        if (!sesion_.EsDePractica()) return;
        if (!SesionActiva(sesion_)) return e_.vista.Advertir(MensajeLiteral(sesion_.Motivo));
        GuardarGrabacionElegida(RutaDePracticaPropia(), e_.programa.textos, e_.vista);
    }

    SistemaConectado* Sistema() override { return sesion_.Conectado ? &sistema_ : nullptr; }
    SesionSAP* Sesion() override { return &sesion_; }

private:
    void Tomar(std::optional<Importacion> importacion) {
        if (!importacion) return;
        TomarImportacion(e_.ventana, std::move(*importacion), TextoDelModelo(Palabra(e_.programa.textos, palabra::Filas)));
    }

    bool PedirLogon(EleccionDeLogon& eleccion) {
        const auto memoria = MemoriaDeConexion();
        RecuperarConexion(memoria, eleccion);
        const auto practica = RutaDePracticaPropia();
        eleccion.rol = LeerRolDeSistema(practica);
        FormLogon dialogo(eleccion, practica, e_.programa.textos, e_.vista, e_.padre);
        if (dialogo.exec() != QDialog::Accepted) return false;
        RecordarConexion(memoria, eleccion);
        return true;
    }

    OpcionesDeSistema OpcionesDePractica() const {
        const auto opciones = [this](const std::filesystem::path& practica) {
            return OpcionesDelUsuario(e_.programa.ajustes, e_.programa.directorioDeDatos, DirectorioDeAjustes(), practica);
        };
        try {
            return opciones(RutaDePracticaConDirectorio(EntornoDelProceso()));
        } catch (const FalloDeArchivo&) {
            return opciones(RutaDePracticaPropia());  // the logon tells that it can't be opened
        }
    }

    static std::filesystem::path RutaDePracticaPropia() { return RutaDePractica(EntornoDelProceso()); }
    std::filesystem::path MemoriaDeConexion() const { return DirectorioDeAjustes() / "qor-connection.ini"; }
    std::filesystem::path DirectorioDeAjustes() const { return e_.programa.rutaDeAjustes.parent_path(); }

    DialogoABAP DialogoDelNombre() {
        return [this](const std::string& propuesto) {
            FormABAP dialogo(sesion_, e_.programa.textos, e_.vista, propuesto, e_.padre);
            dialogo.exec();
            return dialogo.NombreElegido();
        };
    }

    // For a report of this program's own making.
    DialogoABAP TrasPreguntar(std::function<int()> errores) {
        return TrasPreguntarPorErrores(DialogoDelNombre(), std::move(errores), e_.programa.textos, e_.vista);
    }

    DialogoImport DialogoDeColas() {
        return [this](FormularioImport& formulario) {
            FormImport(formulario, sesion_, e_.programa.textos, e_.vista, e_.padre).exec();
        };
    }

    EntornoDeConexion e_;
    SesionSAP sesion_;
    SistemaDeLaSesion sistema_;
};

}  // namespace

std::unique_ptr<AccionesDeConexion> ConexionSAP(const EntornoDeConexion& entorno) {
    return std::make_unique<ConexionDelPrograma>(entorno);
}

}  // namespace qor
