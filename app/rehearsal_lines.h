#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "app/rehearsal.h"

// What is seen of a rehearsal, without the window that shows it. Texts are windows-1252.
namespace qor {

// Reads "2, 5=Credit limit exceeded, 7=A:Locked" into the list. A comma in a text belongs to it where no number follows. Returns
// the piece that is none of these, empty where all is well; the list is then whole.
std::string LeerFallosPedidos(std::string_view texto, FallosPorRegistro& fallos);

// Reads "A-B", one number alone, or nothing for all. False for anything else.
bool LeerTramoPedido(std::string_view texto, TramoDeRegistros& tramo);

// Reads "P_PLANT=1000, P_TEST=X" into the list, names in upper case. Returns the piece that is not of this form.
std::string LeerParesPedidos(std::string_view texto, std::vector<std::pair<std::string, std::string>>& pares);

// The files of comma-separated values in a folder as tables of their names: "ZPO_HEAD=zpo_head.csv, ZPO_ITEM=zpo_item.csv". Those
// whose name is none of a table, or doesn't fit into this form, are left out.
std::string TablasDeCarpeta(const std::filesystem::path& carpeta);

// The records of a rehearsal that are shown: all of them, or those of one state, or those that a text is found in.
class RegistrosVistos {
public:
    // Says a sentence in the language of the user.
    using Decir = std::function<std::string(const Frase&)>;

    explicit RegistrosVistos(Decir decir) : decir_(std::move(decir)) {}
    // The result has to live as long as it is shown; null for none. All are shown then.
    void Poner(const ResultadoDeEnsayo* resultado);
    // A number shows the record of that number, and those whose failure holds it; another text those whose failure holds it in
    // upper or lower case.
    void Filtrar(std::optional<EstadoDeRegistro> estado, std::string_view texto);

    std::size_t Cuantos() const { return todos_ ? Todos() : filas_.size(); }
    // The number of the record in a row, from 1.
    std::size_t Registro(std::size_t fila) const { return todos_ ? fila + 1 : filas_[fila]; }
    // The row of a record, where it is shown.
    std::optional<std::size_t> FilaDe(std::size_t registro) const;
    EstadoDeRegistro Estado(std::size_t registro) const { return resultado_->registros[registro - 1]; }
    // Its first failure; null where it did not fail, or where the list of failures was full.
    const FalloDeEnsayo* Fallo(std::size_t registro) const;
    // Why it failed: its first failure, or the short dump, in the language of the user.
    std::string Motivo(std::size_t registro) const;
    // The cells of the values that made it fail.
    std::vector<Lugar> Culpables(std::size_t registro) const;
    std::size_t CuantosEn(EstadoDeRegistro estado) const { return cuentas_[static_cast<std::size_t>(estado)]; }
    std::size_t Todos() const { return resultado_ == nullptr ? 0 : resultado_->registros.size(); }

private:
    bool Sirve(std::size_t registro, std::optional<EstadoDeRegistro> estado, std::string_view buscado) const;

    Decir decir_;
    const ResultadoDeEnsayo* resultado_ = nullptr;
    std::unordered_map<std::size_t, std::size_t> fallos_;  // the first failure of a record
    std::array<std::size_t, 4> cuentas_{};
    bool todos_ = true;
    std::vector<std::uint32_t> filas_;
};

// A line of the tree of what a record sends: operations, their screens, the fields of these; messages behind the screens.
struct LineaDeEnvio {
    enum class Clase : std::uint8_t { Operacion, Pantalla, Campo, Mensaje };

    Clase clase{};
    int padre = -1;  // the line that it stands under; -1 for none
    std::string nombre;
    std::string valor;
    std::string deArchivo;  // the file field
    int grupo = 0;          // of CampoEnviado
    std::size_t deRegistro = 0;
    Lugar celda;
    Frase sinEnviar;       // why not; empty for what was sent
    bool gris = false;     // not sent, itself or what it stands in
    bool fallado = false;  // of an operation that failed, of a field that made it fail, and of a message that says so
    bool enSesion = false;
};

// `culpables` are the cells of the values that made the record fail.
std::vector<LineaDeEnvio> LineasDe(const std::vector<Envio>& envios, const std::vector<Lugar>& culpables);

// A line of the totals: a heading, or what is counted below it.
struct LineaDeTotal {
    enum class Titulo : std::uint8_t { Registros, Condiciones, Pares, Huerfanos };

    Titulo titulo{};
    Frase nombre;
    std::uint64_t veces = 0;    // asked, or hits
    std::uint64_t ciertas = 0;  // of a condition
    Lugar celda;
};

// Conditions, value pairs, and lines that belong to no record, in this order.
std::vector<LineaDeTotal> TotalesDe(const ResultadoDeEnsayo& resultado, const Especificacion& especificacion);

}  // namespace qor
