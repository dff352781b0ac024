#include "app/connection_actions.h"

namespace qor {

namespace {

class ConexionAusente : public AccionesDeConexion {
public:
    explicit ConexionAusente(Vista& vista) : vista_(vista) {}

    bool Disponible() const override { return false; }
    bool Conectado() const override { return false; }
    bool EsDePractica() const override { return false; }
    std::string ConnectionStatus() const override { return {}; }

    void Logon() override { Avisar(); }
    void Logoff() override {}
    void ButtonOnlineSHDB() override { Avisar(); }
    void ButtonOnlineSM35() override { Avisar(); }
    void ButtonOnlineAnchos() override { Avisar(); }
    void ButtonOnlinePublish() override { Avisar(); }
    void ButtonOnlinePublishLocal() override { Avisar(); }
    void GuardarGrabacion() override { Avisar(); }

    SistemaConectado* Sistema() override { return nullptr; }
    SesionSAP* Sesion() override { return nullptr; }

private:
    void Avisar() { vista_.Advertir(MensajeLiteral("No library for connections to an SAP system is configured.")); }

    Vista& vista_;
};

}  // namespace

std::unique_ptr<AccionesDeConexion> SinConexion(Vista& vista) { return std::make_unique<ConexionAusente>(vista); }

}  // namespace qor
