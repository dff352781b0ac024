#include "practice/recording_reader.h"

#include <utility>

#include "base/files.h"
#include "base/text.h"
#include "practice/batch_rows.h"
#include "sap/import.h"

namespace qor {

namespace {

class LectorDeGrabacion {
public:
    explicit LectorDeGrabacion(const std::function<void(const TransaccionLeida&)>& hacer) : hacer_(hacer) {}

    void Leer(std::string_view texto) {
        bool sesion = false;
        for (const auto linea : PartirEnLineas(texto)) {
            sesion = sesion || Tramo(linea, 41, 5) == "0000T";
            if (sesion) {
                LeerRegistro(linea);
            } else {
                LeerLinea(linea);
            }
        }
        LeerTrozo();
        if (abierta_) Entregar();
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
        std::string codigo;
        for (auto& fila : tabla_) {
            if (fila.EsCabezaTransaccion()) {
                codigo = Mayusculas(Recortar(fila.dynpro));
            } else if (!fila.programa.empty()) {
                actual_.filas.push_back({Mayusculas(Recortar(fila.programa)), Mayusculas(Recortar(fila.dynpro)), true, {}, {}});
            } else if (!fila.campo.empty()) {
                actual_.filas.push_back({{}, {}, false, Mayusculas(Recortar(fila.campo)), SinApostrofos(fila.valor)});
            }
            fila = {};
        }
        trozo_.clear();
        campos_ = 0;
        if (codigo.empty()) return;
        // Here the code stands behind the screens.
        actual_.codigo = std::move(codigo);
        Entregar();
    }

    // The importer puts values between apostrophes.
    static std::string SinApostrofos(std::string_view valor) {
        return valor.size() < 2 ? std::string() : std::string(valor.substr(1, valor.size() - 2));
    }

    // A record of the queue: the transaction stands in front of its screens.
    void LeerRegistro(std::string_view linea) {
        const std::string campo = Mayusculas(Recortar(Tramo(linea, 46, 132)));
        const auto clase = Tramo(linea, 45, 1);
        if (clase == "T" || clase == "t") {
            LeerTrozo();
            if (abierta_) Entregar();
            actual_ = {campo, {}};
            abierta_ = true;
        } else if ((clase == "X" || clase == "x") && abierta_) {
            actual_.filas.push_back(
                {Mayusculas(Recortar(Tramo(linea, 1, 40))), Mayusculas(Recortar(Tramo(linea, 41, 4))), true, {}, {}});
        } else if (clase == " " && abierta_ && !campo.empty()) {
            actual_.filas.push_back({{}, {}, false, campo, std::string(SinBlancosDetras(Tramo(linea, 178, 132)))});
        }
    }

    void Entregar() {
        abierta_ = false;
        hacer_(actual_);
        actual_ = {};
    }

    static constexpr int camposPorTrozo = 400;

    const std::function<void(const TransaccionLeida&)>& hacer_;
    std::vector<FilaDeTransaccion> tabla_{filasTabla};
    std::string trozo_;
    int campos_ = 0;
    TransaccionLeida actual_;
    bool abierta_ = false;  // of records of the queue
};

}  // namespace

void LeerGrabacion(std::string_view texto, const std::function<void(const TransaccionLeida&)>& hacer) {
    LectorDeGrabacion(hacer).Leer(texto);
}

}  // namespace qor
