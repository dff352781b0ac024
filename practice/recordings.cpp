#include "practice/recordings.h"

#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "sap/import.h"

namespace qor {

namespace {

std::string ClaveDePantalla(std::string_view programa, std::string_view dynpro) {
    std::string clave(programa);
    clave += '\n';
    if (dynpro.size() < 4) clave.append(4 - dynpro.size(), '0');
    clave += dynpro;
    return clave;
}

// Screens as they come, until it is known of which transaction they are.
struct PantallaGrabada {
    std::string programa;
    std::string dynpro;
    std::vector<std::string> campos;
};

class LectorDeGrabacion {
public:
    explicit LectorDeGrabacion(std::unordered_map<std::string, TransaccionGrabada>& transacciones)
        : transacciones_(transacciones) {}

    int Leer(std::string_view texto) {
        bool sesion = false;
        for (const auto linea : PartirEnLineas(texto)) {
            sesion = sesion || Tramo(linea, 41, 5) == "0000T";
            if (sesion) {
                LeerRegistro(Mayusculas(linea));
            } else {
                LeerLinea(linea);
            }
        }
        LeerTrozo();
        return cuantas_;
    }

private:
    // The program text of a recording goes through the importer's reader a screen at a time, since that one ends at the length of
    // the program side. A screen of very many fields goes in several pieces.
    void LeerLinea(std::string_view linea) {
        const std::string mayusculas = Mayusculas(linea);
        const bool campo = Contiene(mayusculas, "BDC_FIELD");
        if (Contiene(mayusculas, "BDC_DYNPRO") || (campo && campos_ == camposPorTrozo)) LeerTrozo();
        if (campo) ++campos_;
        trozo_.append(linea).append("\n");
        if (Contiene(mayusculas, "BDC_TRANSACTION")) LeerTrozo();
    }

    void LeerTrozo() {
        if (trozo_.empty()) return;
        LeerSesion(tabla_, trozo_, 0, [] {});
        std::string transaccion;
        for (auto& fila : tabla_) {
            if (fila.EsCabezaTransaccion()) {
                transaccion = fila.dynpro;
            } else if (!fila.programa.empty()) {
                pantallas_.push_back({fila.programa, fila.dynpro, {}});
            } else if (!fila.campo.empty() && !pantallas_.empty()) {
                pantallas_.back().campos.push_back(fila.campo);
            }
            fila = {};
        }
        trozo_.clear();
        campos_ = 0;
        if (!transaccion.empty()) Guardar(transaccion);
    }

    void Guardar(const std::string& codigo) {
        auto& transaccion = Abrir(codigo);
        for (const auto& pantalla : pantallas_) {
            auto& campos = transaccion.Agregar(pantalla.programa, pantalla.dynpro);
            for (const auto& campo : pantalla.campos) campos.emplace(SinNumeroDeFila(Recortar(campo)));
        }
        pantallas_.clear();
    }

    // A record of the queue: here the transaction stands in front of its screens.
    void LeerRegistro(std::string_view linea) {
        const auto campo = Recortar(Tramo(linea, 46, 132));
        const auto clase = Tramo(linea, 45, 1);
        if (clase == "T") {
            actual_ = &Abrir(campo);
            camposActuales_ = nullptr;
        } else if (clase == "X" && actual_) {
            camposActuales_ = &actual_->Agregar(Recortar(Tramo(linea, 1, 40)), Recortar(Tramo(linea, 41, 4)));
        } else if (clase == " " && camposActuales_ && !campo.empty()) {
            camposActuales_->emplace(SinNumeroDeFila(campo));
        }
    }

    TransaccionGrabada& Abrir(std::string_view codigo) {
        ++cuantas_;
        return transacciones_[Mayusculas(Recortar(codigo))];
    }

    static constexpr int camposPorTrozo = 400;

    std::unordered_map<std::string, TransaccionGrabada>& transacciones_;
    std::vector<FilaDeTransaccion> tabla_{filasTabla};
    std::string trozo_;
    int campos_ = 0;
    std::vector<PantallaGrabada> pantallas_;
    TransaccionGrabada* actual_ = nullptr;
    TransaccionGrabada::Campos* camposActuales_ = nullptr;
    int cuantas_ = 0;
};

}  // namespace

const TransaccionGrabada::Campos* TransaccionGrabada::Buscar(std::string_view programa, std::string_view dynpro) const {
    const auto lugar = pantallas_.find(ClaveDePantalla(programa, dynpro));
    return lugar == pantallas_.end() ? nullptr : &lugar->second;
}

TransaccionGrabada::Campos& TransaccionGrabada::Agregar(std::string_view programa, std::string_view dynpro) {
    return pantallas_[ClaveDePantalla(programa, dynpro)];
}

int Grabaciones::Agregar(std::string_view texto) { return LectorDeGrabacion(transacciones_).Leer(texto); }

const TransaccionGrabada* Grabaciones::Buscar(std::string_view transaccion) const {
    const auto lugar = transacciones_.find(Mayusculas(transaccion));
    return lugar == transacciones_.end() ? nullptr : &lugar->second;
}

}  // namespace qor
