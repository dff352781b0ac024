#pragma once

#include <string>
#include <string_view>

#include "input/kinds.h"
#include "input/layout.h"
#include "input/sheet.h"

namespace qor {

// How values stand in the cells of a table.
struct OpcionesDeCeldas {
    bool comoGuardado = false;  // numbers and booleans as they are stored; else as they are displayed
    std::string fechas;         // how dates stand in texts, as in ClaseDeCampo; empty: as in the layout
    char decimales = 0;         // the decimal sign of numbers in texts; 0: as in the layout
};

// A value for a cell.
struct ValorDeCelda {
    enum class Clase { Texto, Numero, Fecha };
    Clase clase = Clase::Texto;
    std::string texto;
    double numero = 0;
    int decimales = 0;  // of a number
};

// Takes values of one field from a layout into a table and back, by the kind of the field. What goes there comes back the same.
class ConversorDeCampo {
public:
    // `clase` may be null.
    ConversorDeCampo(const CampoDeRegistro& campo, const ClaseDeCampo* clase, bool porTabuladores, OpcionesDeCeldas opciones);

    // The value of a cell as the field takes it. False for one that has no place there; `motivo` is one sentence that tells why.
    bool ALayout(const CeldaDeHoja& celda, std::string& valor, std::string& motivo) const;
    // The value of a field as a text, and as a number or a date where it is one whose cell comes back as the same text.
    bool AlTexto(std::string_view valor, std::string& texto, std::string& motivo) const;
    ValorDeCelda AlLibro(std::string_view valor) const;

    // The kind is that of dates, and tells a whole day.
    bool EsDeFechas() const { return diaEntero_; }

private:
    bool DeTexto(const CeldaDeHoja& celda, std::string& valor, std::string& motivo) const;
    bool DeNumero(const CeldaDeHoja& celda, std::string& valor, std::string& motivo) const;
    bool DeFecha(const CeldaDeHoja& celda, std::string& valor, std::string& motivo) const;
    bool Cabe(std::string& valor, std::string& motivo) const;

    std::size_t ancho_;
    bool porTabuladores_;
    ClaseDeCampo clase_;
    OpcionesDeCeldas opciones_;
    bool diaEntero_ = false;
};

// Whether dates can be read back in this form: it has day, month, and a year of four digits.
bool DiceElDia(std::string_view formato);

}  // namespace qor
