#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// A number format of a workbook, such as "#,##0.00;[Red]-#,##0.00" or "dd.mm.yyyy".
//
// Covered are General, whole numbers, decimals, thousands, percent, dates, times and text, with sections for negative numbers and
// zero. Colours, blanks and fill characters are passed over; so are the signs of thousands. Not covered, so that nobody guesses:
// exponents, fractions, scaling, conditions, texts and currencies beside a number, names of months and days, and the dates that
// follow the settings of the computer.
class FormatoDeNumero {
public:
    // The code in UTF-8.
    explicit FormatoDeNumero(std::string codigo);
    // The format that workbooks name with a number alone; General for a number that stands for none.
    static FormatoDeNumero Fijo(int numero);

    const std::string& Codigo() const { return codigo_; }
    // What is displayed depends on the settings of the computer.
    bool PorAjustes() const { return porAjustes_; }
    // Numbers are days, times, or both.
    bool EsFecha() const { return fecha_; }
    // Such a number has a day: one with a year, a month or a day in its format, or one that follows the settings.
    bool TieneDia() const { return dia_; }
    bool EsPorcentaje() const;

    // A number as it is displayed, with a point in front of the decimals. Nothing where that isn't covered.
    std::optional<std::string> Mostrar(double numero) const;
    // The digits of a number as they are displayed, with its sign, whatever stands beside them. Nothing where that isn't covered,
    // and for dates and percentages.
    std::optional<std::string> MostrarCifras(double numero) const;

private:
    struct Pieza {
        enum class Clase { Signos, Ano, Mes, Dia, Hora, Minuto, Segundo, Fraccion, MedioDia, Horas, Minutos, Segundos };
        Clase clase = Clase::Signos;
        int largo = 0;
        std::string texto = {};
    };
    struct Seccion {
        enum class Clase { General, Numero, Fecha, Texto, Vacia, SinCubrir };
        Clase clase = Clase::Vacia;
        bool adornos = false;   // texts beside the number
        bool negativo = false;  // a minus sign in front of the number
        bool porcentaje = false;
        int enteros = 0;  // digits in front of the point, at least
        int decimalesAlMenos = 0;
        int decimalesALoMas = 0;
        std::vector<Pieza> piezas = {};  // of a date
    };
    class Lectura;

    // The section for a number, and whether a minus sign goes in front of what it shows.
    const Seccion& SeccionDe(double numero, bool& conSigno) const;
    std::optional<std::string> MostrarNumero(double numero, bool soloCifras) const;
    static std::optional<std::string> MostrarFecha(double numero, const Seccion& seccion);

    std::string codigo_;
    std::vector<Seccion> secciones_;
    bool fecha_ = false;
    bool dia_ = false;
    bool porAjustes_ = false;
};

}  // namespace qor
