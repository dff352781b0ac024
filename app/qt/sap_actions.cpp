#include "app/qt/sap_actions.h"

#include <QSettings>
#include <array>
#include <filesystem>
#include <string>
#include <utility>

#include "app/sap_connection.h"
#include "base/qt/text.h"
#include "sap/FormABAP.h"
#include "sap/FormImport.h"
#include "sap/FormLogon.h"
#include "sap/connected_system.h"
#include "sap/import.h"
#include "sap/nwrfc_library.h"
#include "sap/publish.h"
#include "sap/queue_choice.h"
#include "sap/widths.h"

namespace qor {

namespace {

// What is remembered of a connection, by its key. The password is not among it.
constexpr std::array<std::pair<const char*, std::string ParametrosDeLogon::*>, 9> recordados = {{
    {"ApplicationServer", &ParametrosDeLogon::servidor},
    {"SystemNumber", &ParametrosDeLogon::numeroDeSistema},
    {"MessageServer", &ParametrosDeLogon::servidorDeMensajes},
    {"System", &ParametrosDeLogon::sistema},
    {"Group", &ParametrosDeLogon::grupo},
    {"Client", &ParametrosDeLogon::cliente},
    {"User", &ParametrosDeLogon::usuario},
    {"Language", &ParametrosDeLogon::idioma},
    {"Router", &ParametrosDeLogon::ruta},
}};

class Conexion : public AccionesDeConexion {
public:
    explicit Conexion(const EntornoDeConexion& entorno)
        : e_(entorno),
          sesion_(NuevaSesionSAP(e_.programa.ajustes, e_.programa.directorioDeDatos,
                                 [this](ParametrosDeLogon& parametros) { return PedirLogon(parametros); })),
          sistema_(e_.editor, sesion_, DialogoDelNombre()) {}

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
        if (ImportarTrasLogon(opciones, e_.editor.HayCambios, e_.editor.DocumentoBloqueado())) ButtonOnlineSHDB();
    }
    void Logoff() override { Logoff_Click(sesion_); }

    void ButtonOnlineSHDB() override { qor::ButtonOnlineSHDB(e_.editor, DialogoDeColas()); }
    void ButtonOnlineSM35() override { qor::ButtonOnlineSM35(e_.editor, DialogoDeColas()); }
    void ButtonOnlineAnchos() override { qor::ButtonOnlineAnchos(e_.editor, sesion_); }
    void ButtonOnlinePublish() override {
        qor::ButtonOnlinePublish(sesion_, e_.programa.generador.UltimoPrograma, DialogoDelNombre(), e_.programa.textos, e_.vista);
    }
    void ButtonOnlinePublishLocal() override {
        qor::ButtonOnlinePublishLocal(sesion_, e_.editor.DirectorioDocumentos, DialogoDelNombre(), e_.programa.textos, e_.vista);
    }

    SistemaConectado* Sistema() override { return sesion_.Conectado ? &sistema_ : nullptr; }
    SesionSAP* Sesion() override { return &sesion_; }

private:
    QString Memoria() const {
        const auto ruta = e_.programa.rutaDeAjustes.parent_path() / "qor-connection.ini";
        return QString::fromStdString(ruta.string());
    }

    bool PedirLogon(ParametrosDeLogon& parametros) {
        QSettings memoria(Memoria(), QSettings::IniFormat);
        for (const auto& [clave, campo] : recordados)
            parametros.*campo = TextoDelModelo(memoria.value(QLatin1String(clave)).toString());
        FormLogon dialogo(parametros, e_.programa.textos, e_.ventana);
        if (dialogo.exec() != QDialog::Accepted) return false;
        for (const auto& [clave, campo] : recordados) memoria.setValue(QLatin1String(clave), TextoQt(parametros.*campo));
        return true;
    }

    DialogoABAP DialogoDelNombre() {
        return [this](const std::string& propuesto) {
            FormABAP dialogo(sesion_, e_.programa.textos, e_.vista, propuesto, e_.ventana);
            dialogo.exec();
            return dialogo.NombreElegido();
        };
    }

    DialogoImport DialogoDeColas() {
        return [this](FormularioImport& formulario) {
            FormImport(formulario, sesion_, e_.programa.textos, e_.vista, e_.ventana).exec();
        };
    }

    EntornoDeConexion e_;
    SesionSAP sesion_;
    SistemaDeLaSesion sistema_;
};

}  // namespace

std::unique_ptr<AccionesDeConexion> ConexionSAP(const EntornoDeConexion& entorno) { return std::make_unique<Conexion>(entorno); }

}  // namespace qor
