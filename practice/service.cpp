#include "practice/service.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/code_page.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "practice/remote_functions.h"
#include "practice/role.h"

namespace qor {

namespace {

std::string MotivoDe(const FalloDeEjecucion& fallo) {
    const auto* const deArchivo = dynamic_cast<const FalloDeArchivo*>(&fallo);
    return deArchivo == nullptr ? fallo.what() : DesdeUtf8ConFaltas(deArchivo->Detalle());
}

class TablaRemota : public TablaRFC {
public:
    TablaRemota(const TablaDeModulo& descripcion, FilasRemotas& filas) : descripcion_(descripcion), filas_(filas) {}

    void FreeTable() override { filas_.clear(); }

    void Data(const std::vector<std::string>& textos) override {
        filas_.clear();
        for (const auto& texto : textos) {
            if (SinBlancosDetras(texto).size() > descripcion_.ancho) {
                throw FalloDelServicio("Row " + std::to_string(filas_.size() + 1) + " of the table " +
                                       std::string(descripcion_.nombre) + " has more than " + std::to_string(descripcion_.ancho) +
                                       " characters");
            }
            filas_.push_back({texto});
        }
    }

    int RowCount() const override { return static_cast<int>(filas_.size()); }

    std::string Value(int fila, int columna) const override {
        const bool hay = fila >= 1 && fila <= RowCount() && columna >= 1 &&
                         static_cast<std::size_t>(columna) <= filas_[static_cast<std::size_t>(fila - 1)].size();
        if (!hay) {
            throw FalloDelServicio("The table " + std::string(descripcion_.nombre) + " has no row " + std::to_string(fila) +
                                   " with a column " + std::to_string(columna));
        }
        const auto& celda = filas_[static_cast<std::size_t>(fila - 1)][static_cast<std::size_t>(columna - 1)];
        return std::string(SinBlancosDetras(celda).substr(0, columna == 1 ? descripcion_.ancho : celda.size()));
    }

private:
    const TablaDeModulo& descripcion_;
    FilasRemotas& filas_;
};

class ServicioDePractica : public ServicioRFC, private ConexionRFC {
public:
    ServicioDePractica(OpcionesDeServicio opciones, NombresRFC nombres)
        : opciones_(std::move(opciones)), nombres_(std::move(nombres)) {}

    ConexionRFC& Connection() override { return *this; }
    std::unique_ptr<FuncionRFC> Add(std::string_view modulo) override;
    std::string UltimoError() const override { return error_; }
    bool EsDePractica() const override { return true; }

    bool Correr(const ModuloRemoto& modulo, LlamadaRemota& llamada);

private:
    bool Logon(bool silencioso) override;
    void Logoff() override { sistema_.reset(); }
    bool Abierta() const override { return sistema_.has_value(); }
    std::string Client() const override { return cliente_; }
    std::string System() const override { return "PRA"; }

    void Abrir();
    // Another file has come into the place of the one that is open.
    bool EsOtroArchivo() const;

    OpcionesDeServicio opciones_;
    NombresRFC nombres_;
    std::optional<SistemaRemoto> sistema_;
    std::optional<IdentidadDeArchivo> archivo_;  // the one that is open
    std::string cliente_;
    std::string error_;
};

class FuncionRemota : public FuncionRFC {
public:
    FuncionRemota(ServicioDePractica& servicio, const ModuloRemoto& modulo, std::string_view nombre)
        : servicio_(servicio), modulo_(modulo), nombre_(nombre) {}

    void Exports(std::string_view nombre, std::string_view valor) override {
        if (std::find(modulo_.parametros.begin(), modulo_.parametros.end(), nombre) == modulo_.parametros.end()) {
            throw FalloDelServicio("The parameter " + std::string(nombre) + " of " + nombre_ + " is not known");
        }
        llamada_.exporta[std::string(nombre)] = valor;
    }

    TablaRFC& Tables(std::string_view nombre) override {
        for (const auto& descripcion : modulo_.tablas) {
            if (descripcion.nombre != nombre) continue;
            return tablas_.try_emplace(std::string(nombre), descripcion, llamada_.tablas[std::string(nombre)]).first->second;
        }
        throw FalloDelServicio("The table " + std::string(nombre) + " of " + nombre_ + " is not known");
    }

    bool Call() override { return servicio_.Correr(modulo_, llamada_); }

private:
    ServicioDePractica& servicio_;
    const ModuloRemoto& modulo_;
    std::string nombre_;
    LlamadaRemota llamada_;
    std::map<std::string, TablaRemota, std::less<>> tablas_;
};

std::unique_ptr<FuncionRFC> ServicioDePractica::Add(std::string_view modulo) {
    const auto* conocido = BuscarModuloRemoto(nombres_, modulo);
    if (conocido == nullptr) {
        throw FalloDelServicio("The practice system has no function module " + std::string(modulo));
    }
    return std::make_unique<FuncionRemota>(*this, *conocido, modulo);
}

void ServicioDePractica::Abrir() {
    sistema_.reset();
    sistema_.emplace(opciones_.sistema);
    cliente_ = sistema_->Base().Cliente();
    if (!opciones_.sistema.archivo.empty()) archivo_ = Identidad(opciones_.sistema.archivo);
}

bool ServicioDePractica::EsOtroArchivo() const {
    const auto ahora = archivo_ ? Identidad(opciones_.sistema.archivo) : std::nullopt;
    return ahora && !ahora->EsElMismo(*archivo_);
}

bool ServicioDePractica::Logon(bool silencioso) {
    error_.clear();
    try {
        if (!silencioso) {
            Abrir();
            if (opciones_.rol && RolDeSistema(sistema_->Base()) != *opciones_.rol) {
                PonerRolDeSistema(sistema_->Base(), *opciones_.rol);
                sistema_->Base().TerminarUnidad();
            }
        } else if (sistema_ && archivo_ && !Existe(opciones_.sistema.archivo)) {
            sistema_.reset();
            error_ = "The file of the practice system is gone";
        }
    } catch (const FalloDeEjecucion& fallo) {
        throw FalloDelServicio(MotivoDe(fallo));
    }
    return sistema_.has_value();
}

bool ServicioDePractica::Correr(const ModuloRemoto& modulo, LlamadaRemota& llamada) {
    error_.clear();
    try {
        if (!sistema_) return false;
        if (sistema_->EsViejo() || EsOtroArchivo()) Abrir();
        modulo.correr(*sistema_, llamada);
        return true;
    } catch (const FalloDelServicio& fallo) {
        error_ = fallo.what();
    } catch (const FalloDeEjecucion& fallo) {
        error_ = MotivoDe(fallo);
    }
    return false;
}

}  // namespace

std::unique_ptr<ServicioRFC> CrearServicioDePractica(OpcionesDeServicio opciones, NombresRFC nombres) {
    return std::make_unique<ServicioDePractica>(std::move(opciones), std::move(nombres));
}

}  // namespace qor
