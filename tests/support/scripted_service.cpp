#include "tests/support/scripted_service.h"

#include <map>
#include <utility>

namespace qor::pruebas {

namespace {

class TablaDeGuion : public TablaRFC {
public:
    TablaDeGuion(Guion& guion, std::string nombre) : guion_(guion), nombre_(std::move(nombre)) {}

    void FreeTable() override {
        guion_.Paso("FreeTable");
        filas.clear();
    }
    void Data(const std::vector<std::string>& textos) override {
        guion_.Paso("Data");
        for (const auto& texto : textos) guion_.conversacion.push_back(nombre_ + " < " + texto);
    }
    int RowCount() const override {
        guion_.Paso("RowCount");
        return static_cast<int>(filas.size());
    }
    std::string Value(int fila, int columna) const override {
        guion_.Paso("Value");
        return filas.at(static_cast<std::size_t>(fila - 1)).at(static_cast<std::size_t>(columna - 1));
    }

    std::vector<std::vector<std::string>> filas;

private:
    Guion& guion_;
    std::string nombre_;
};

class FuncionDeGuion : public FuncionRFC {
public:
    explicit FuncionDeGuion(Guion& guion) : guion_(guion) {}

    void Exports(std::string_view nombre, std::string_view valor) override {
        guion_.Paso("Exports");
        guion_.conversacion.push_back(std::string(nombre) + " = " + std::string(valor));
    }
    TablaRFC& Tables(std::string_view nombre) override {
        guion_.Paso("Tables");
        salida_ = &tablas_.try_emplace(std::string(nombre), guion_, std::string(nombre)).first->second;
        return *salida_;
    }
    bool Call() override {
        guion_.Paso("Call");
        guion_.conversacion.emplace_back("Call");
        if (guion_.llamadas.empty()) return false;
        const auto respuesta = std::move(guion_.llamadas.front());
        guion_.llamadas.pop_front();
        if (respuesta) salida_->filas = respuesta->filas;
        return respuesta.has_value();
    }

private:
    Guion& guion_;
    std::map<std::string, TablaDeGuion> tablas_;
    TablaDeGuion* salida_ = nullptr;  // the table named last
};

class ServicioDeGuion : public ServicioRFC, private ConexionRFC {
public:
    explicit ServicioDeGuion(std::shared_ptr<Guion> guion) : guion_(std::move(guion)) {}

    ConexionRFC& Connection() override { return *this; }
    std::unique_ptr<FuncionRFC> Add(std::string_view modulo) override {
        guion_->Paso("Add");
        guion_->conversacion.push_back("Add " + std::string(modulo));
        return std::make_unique<FuncionDeGuion>(*guion_);
    }
    std::string UltimoError() const override { return guion_->ultimoError; }

private:
    bool Logon(bool silencioso) override {
        guion_->Paso(silencioso ? "Ping" : "Logon");
        if (silencioso) return guion_->usable;
        guion_->conversacion.emplace_back("Logon");
        return guion_->logon;
    }
    void Logoff() override {
        guion_->Paso("Logoff");
        guion_->conversacion.emplace_back("Logoff");
    }
    bool Abierta() const override { return guion_->abierta; }
    std::string Client() const override { return guion_->cliente; }
    std::string System() const override { return guion_->sistema; }

    std::shared_ptr<Guion> guion_;
};

}  // namespace

void Guion::Responder(std::initializer_list<const char*> filas) { Responder(std::vector<std::string>(filas.begin(), filas.end())); }

void Guion::Responder(const std::vector<std::string>& filas) {
    Lista lista;
    for (const auto& fila : filas) lista.filas.push_back({fila});
    llamadas.emplace_back(std::move(lista));
}

std::vector<std::string> Guion::TomarConversacion() { return std::exchange(conversacion, {}); }

void Guion::Paso(const char* operacion) const {
    if (fallaEn == operacion) throw FalloDelServicio("broken at " + fallaEn);
}

SesionSAP SesionDeGuion(const std::shared_ptr<Guion>& guion) {
    SesionSAP sesion;
    sesion.nombres = ConNombresConocidos({});
    sesion.plantillas = {{"inf001"},
                         {"inf003", "a <conditions> line", "end"},
                         {"inf005 <datatype>"},
                         {"inf006 <qid> <datatype> <qid>"},
                         {"inf008"},
                         {"inf009 <function>"}};
    sesion.CrearServicio = [guion] {
        guion->Paso("Create");
        return std::make_unique<ServicioDeGuion>(guion);
    };
    return sesion;
}

SesionSAP SesionConectada(const std::shared_ptr<Guion>& guion) {
    SesionSAP sesion = SesionDeGuion(guion);
    sesion.SesionRFC = sesion.CrearServicio();
    sesion.Conectado = true;
    sesion.ModuloRFC = sesion.nombres.ModuloRFCEstandar;
    sesion.RolSistema = "T";
    sesion.VersionSistema = "46C";
    return sesion;
}

}  // namespace qor::pruebas
