#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "practice/batch_rows.h"
#include "practice/database.h"
#include "practice/session_queue.h"

// The batch-input queue of the practice system. What changes it belongs to the unit of work. Texts are windows-1252.
namespace qor {

struct EntradaDeCola {
    std::int64_t numero = 0;  // in order of creation
    std::string qid;          // twenty digits
    std::string grupo;
    std::string cliente;
    std::string creador;
    std::string fecha;  // YYYYMMDD
    std::string hora;   // HHMMSS
    bool conservar = false;
    std::string estado;  // blank: to be processed; C: being created; E: with errors; F: processed
    std::int64_t transacciones = 0;
};

// A transaction of a queue entry. The rows look into it.
struct TransaccionDeCola {
    std::string transaccion;
    std::vector<FilaDeBDC> filas;
    std::string esqueleto;  // what the rows lie in
    std::string valores;
};

class ColaDePractica : public ColaDeSesiones {
public:
    // Entries are dated at that moment.
    ColaDePractica(BaseDePractica& base, abap::Momento momento) : base_(base), momento_(std::move(momento)) {}

    std::string Abrir(std::string_view grupo, std::string_view usuario, std::string_view conservar) override;
    void Insertar(std::string_view transaccion, std::span<const FilaDeBDC> filas) override;
    // The entry is complete. One without transactions stays, as on a system.
    void Cerrar() override;
    bool Leer(std::string_view id, std::string_view tipoDeDatos, const Registro& registro) override;

    void PonerEstado(std::int64_t entrada, std::string_view estado);
    void Borrar(std::int64_t entrada);

    std::vector<EntradaDeCola> Entradas();
    std::optional<EntradaDeCola> Buscar(std::string_view qid);
    // Goes through the transactions of an entry in their order, while the answer is true.
    void CadaTransaccion(std::int64_t entrada, const std::function<bool(const TransaccionDeCola&)>& hacer);
    // The same as records of 309 characters, the header first.
    void CadaRegistro(const EntradaDeCola& entrada, const Registro& registro);

private:
    std::int64_t Esqueleto(const std::string& esqueleto);
    std::vector<EntradaDeCola> Consultar(const std::string& donde, std::string_view qid);

    BaseDePractica& base_;
    abap::Momento momento_;
    std::unordered_map<std::string, std::int64_t> esqueletos_;
    std::string esqueleto_;
    std::string valores_;
    std::int64_t abierta_ = 0;
    std::int64_t cuantas_ = 0;
    std::int64_t unidad_ = -1;
};

}  // namespace qor
