#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "abap/surroundings.h"
#include "practice/batch_rows.h"

// What happens on the practice system while a report runs, as it tells whoever listens: the journal, the summary, the lines of
// failures. Texts are windows-1252, and all that an event refers to lives as long as the call. Nobody copies anything for an
// event, so a listener that looks at nothing costs nothing. The record that was being worked on is known to the listener.
namespace qor {

// A message with its whole text.
struct MensajeDicho {
    char tipo = 'S';
    std::string_view id;
    std::string_view numero;  // three digits
    std::string_view texto;
};

// Where something failed. Of a BAPI only a value that is not in its list has a place: its parameter, or PARAMETER-COMPONENT.
struct LugarDeFallo {
    std::string_view programa;
    std::string_view dynpro;
    std::string_view campo;  // as it was sent, with its row number; empty where a screen failed
    std::string_view valor;
};

// A transaction that was tried: called at once, put into a session, or processed from the queue.
struct TransaccionProbada {
    std::string_view transaccion;
    char modo = ' ';                     // of one that was called or processed
    char actualizacion = ' ';            // of one that was called
    std::span<const FilaDeBDC> filas{};  // a row with `abre` begins a screen, and one with a field belongs to the screen above it;
                                         // a field in front of every screen to one without program and dynpro
    int subrc = 0;                       // 0, or 1001: failed
    std::span<const MensajeDicho> mensajes{};  // never none
    LugarDeFallo lugar{};                      // where it failed
};

struct SesionAbierta {
    std::string_view grupo;
    std::string_view usuario;
    std::string_view conservar;  // KEEP
};

// A BAPI that was called, as its parameters stand behind the call.
struct LlamadaDeBapi {
    const abap::LlamadaAFuncion& llamada;
    int subrc = 0;
    bool fallo = false;                        // it answered with a message of type E or A
    std::span<const MensajeDicho> mensajes{};  // the one that it answered with
    LugarDeFallo lugar{};
};

class OyenteDePractica {
public:
    virtual ~OyenteDePractica() = default;

    virtual void Transaccion(const TransaccionProbada& transaccion) = 0;  // CALL TRANSACTION
    virtual void AbreSesion(const SesionAbierta& sesion) = 0;             // BDC_OPEN_GROUP
    virtual void InsertaEnSesion(const TransaccionProbada& transaccion) = 0;
    virtual void CierraSesion(std::string_view grupo, std::size_t transacciones) = 0;
    virtual void Bapi(const LlamadaDeBapi& llamada) = 0;

    virtual void Confirma() = 0;  // COMMIT WORK and BAPI_TRANSACTION_COMMIT
    virtual void Deshace() = 0;   // ROLLBACK WORK and BAPI_TRANSACTION_ROLLBACK

    // A row that came into a table, in the order of its columns, the client among them.
    virtual void Inserta(const abap::Estructura& tabla, std::span<const abap::ValorDeBase> fila) = 0;
    virtual void Actualiza(std::string_view tabla, std::int64_t filas) = 0;
    virtual void Borra(std::string_view tabla, std::int64_t filas) = 0;

    // A file that the report asked for and did not get, or not to its end, with the reason. Told once for each name and reason.
    virtual void ArchivoSinLeer(std::string_view nombre, std::string_view motivo) = 0;
    // Something that the user should know and that fails no record, such as lines that were longer than their record.
    virtual void Aviso(std::string_view texto) = 0;
};

// What a record was asked to answer with.
struct FalloPedido {
    char tipo = 'E';  // A where it was asked for; a transaction fails with E in either case
    std::string texto;
};

// The course of the run, asked at each transaction and BAPI.
class FallosPedidos {
public:
    virtual ~FallosPedidos() = default;

    // Of the record that is worked on; null where it was not asked to fail. It stays as long as the record.
    virtual const FalloPedido* Pedido() const = 0;
};

}  // namespace qor
