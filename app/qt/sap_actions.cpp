#include "app/qt/sap_actions.h"

#include <string>
#include <utility>

#include "app/findings_watch.h"
#include "app/publish_question.h"
#include "app/qt/connection_memory.h"
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

class Conexion : public AccionesDeConexion {
public:
    explicit Conexion(const EntornoDeConexion& entorno)
        : e_(entorno),
          sesion_(NuevaSesionSAP(e_.programa.ajustes, e_.programa.directorioDeDatos,
                                 [this](ParametrosDeLogon& parametros) { return PedirLogon(parametros); })),
          sistema_(
              e_.ventana.documento, sesion_, TrasPreguntar([this] {
                  return ContarErrores({e_.ventana.documento, e_.programa.ajustes.preferencias, e_.programa.textos, true});
              }),
              [this] { MostrarAnchos(e_.ventana); }, e_.programa.textos, e_.vista) {}

    bool Disponible() const override {
        try {
            nwrfc::Biblioteca::Cargar(e_.programa.ajustes.BibliotecaRFC);
            return true;
        } catch (const FalloDelServicio&) {
            return false;
        }
    }
    bool Conectado() const override { return sesion_.Conectado; }
    std::string ConnectionStatus() const override { return sesion_.ConnectionStatus; }

    void Logon() override {
        const auto opciones = OpcionesDeLogonDe(e_.programa.ajustes);
        if (!Logon_Click(sesion_, opciones, e_.programa.ajustes.preferencias, e_.programa.textos, e_.vista)) return;
        if (ImportarTrasLogon(opciones, e_.ventana.documento.HayCambios(), e_.ventana.documento.Bloqueado())) ButtonOnlineSHDB();
    }
    void Logoff() override { Logoff_Click(sesion_); }

    void ButtonOnlineSHDB() override {
        Tomar(qor::ButtonOnlineSHDB(e_.ventana.documento.especificacion, DialogoDeColas(), e_.programa.textos, e_.vista));
    }
    void ButtonOnlineSM35() override {
        Tomar(qor::ButtonOnlineSM35(e_.ventana.documento.especificacion, DialogoDeColas(), e_.programa.textos, e_.vista));
    }
    void ButtonOnlineAnchos() override {
        if (qor::ButtonOnlineAnchos(e_.ventana.documento, sesion_, e_.programa.textos, e_.vista)) MostrarAnchos(e_.ventana);
    }
    void ButtonOnlinePublish() override {
        qor::ButtonOnlinePublish(sesion_, e_.programa.generador.UltimoPrograma,
                                 TrasPreguntar([this] { return e_.programa.erroresDelReporte; }), e_.programa.textos, e_.vista);
    }
    void ButtonOnlinePublishLocal() override {
        qor::ButtonOnlinePublishLocal(sesion_, e_.programa.ajustes.DirectorioDocumentos, DialogoDelNombre(), e_.programa.textos,
                                      e_.vista);
    }

    SistemaConectado* Sistema() override { return sesion_.Conectado ? &sistema_ : nullptr; }
    SesionSAP* Sesion() override { return &sesion_; }

private:
    void Tomar(std::optional<Importacion> importacion) {
        if (!importacion) return;
        TomarImportacion(e_.ventana, std::move(*importacion), TextoDelModelo(Palabra(e_.programa.textos, "Rows")));
    }

    bool PedirLogon(ParametrosDeLogon& parametros) {
        const auto memoria = e_.programa.rutaDeAjustes.parent_path() / "qor-connection.ini";
        RecuperarConexion(memoria, parametros);
        FormLogon dialogo(parametros, e_.programa.textos, e_.vista, e_.padre);
        if (dialogo.exec() != QDialog::Accepted) return false;
        RecordarConexion(memoria, parametros);
        return true;
    }

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

std::unique_ptr<AccionesDeConexion> ConexionSAP(const EntornoDeConexion& entorno) { return std::make_unique<Conexion>(entorno); }

}  // namespace qor
