#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "abap/surroundings.h"
#include "practice/batch_rows.h"
#include "practice/events.h"
#include "practice/recordings.h"
#include "practice/value_lists.h"

namespace qor {

// The type of a screen field such as MARA-MTART, where it is known. Asked once for each name.
using TipoDePantalla = std::function<std::optional<abap::TipoDeCampo>(std::string_view campo)>;

// What came of a transaction. The texts of the rows that failed lie where the rows do.
struct ResultadoDePrueba {
    bool fallo = false;
    char tipo = 'S';
    std::string_view id;
    std::string_view numero;
    std::string variables[4];
    std::string texto;
    LugarDeFallo lugar;  // also without a failure: the last screen

    int Subrc() const { return fallo ? 1001 : 0; }
    MensajeDicho Mensaje() const { return {tipo, id, numero, texto}; }
};

// The practice transaction: tries rows of BDCDATA against what is known of the transaction and its fields. CALL TRANSACTION,
// BDC_INSERT and the processing of a session all try with it.
//
// It goes row by row, and the first failure ends it: is the row a screen or a field; does the screen, or the field on its screen,
// occur in the recording of the transaction, where there is one; is the value not longer than the field, where its type is known;
// is it in the field's value list, where there is one. A record that was asked to fail does so when its last screen is reached.
class ProbadorDeTransacciones {
public:
    // What it is given has to live as long as it.
    ProbadorDeTransacciones(const Grabaciones& grabaciones, ListasDeValores& listas, TipoDePantalla tipo);
    ~ProbadorDeTransacciones();

    // The result lives until the next call. `pedido` is null where the record was not asked to fail.
    const ResultadoDePrueba& Probar(std::string_view transaccion, std::span<const FilaDeBDC> filas, const FalloPedido* pedido);

private:
    struct Nombre;
    struct Recuerdo;
    struct Plan;

    Plan& PlanDe(std::string_view transaccion);
    const Nombre& NombreDe(std::string_view campo);
    bool ProbarFila(Plan& plan, std::size_t i, const FilaDeBDC& fila);
    bool ProbarPantalla(Plan& plan, Recuerdo& recuerdo, const FilaDeBDC& fila);
    bool ProbarCampo(Plan& plan, Recuerdo& recuerdo, const FilaDeBDC& fila);
    bool Fallar(std::string_view numero, std::initializer_list<std::string_view> variables, const LugarDeFallo& lugar);
    bool FallarComoSePidio(const FalloPedido& pedido);

    const Grabaciones& grabaciones_;
    ListasDeValores& listas_;
    TipoDePantalla tipo_;
    std::unordered_map<std::string, std::unique_ptr<Plan>, HashDeTexto, std::equal_to<>> planes_;
    std::unordered_map<std::string, std::unique_ptr<Nombre>, HashDeTexto, std::equal_to<>> nombres_;
    Plan* ultimo_ = nullptr;
    const TransaccionGrabada::Campos* pantalla_ = nullptr;  // of the screen that is open, where it was recorded
    ResultadoDePrueba resultado_;
};

// CALL TRANSACTION.
class TransaccionesDePractica : public abap::Transacciones {
public:
    // `confirmar` commits what stands before the call, and is no COMMIT WORK.
    TransaccionesDePractica(ProbadorDeTransacciones& probador, const FallosPedidos& fallos, OyenteDePractica& oyente,
                            std::function<void()> confirmar);

    abap::ResultadoDeTransaccion Llamar(std::string_view transaccion, const abap::TablaInterna& filas, char modo,
                                        char actualizacion) override;

private:
    ProbadorDeTransacciones& probador_;
    const FallosPedidos& fallos_;
    OyenteDePractica& oyente_;
    std::function<void()> confirmar_;
    LectorDeFilas lector_;
};

}  // namespace qor
