#include "model/control_characters.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "model/cells.h"

namespace qor {

namespace {

template <typename Fila>
struct CeldaDeUnaLinea {
    std::string Fila::*texto;
    const char* nombre;
    const char* control;  // in the first line of the grid
};

constexpr std::array<CeldaDeUnaLinea<FilaDeArchivo>, 2> celdasDeArchivo = {{
    {&FilaDeArchivo::campo, "field", "Text1_0"},
    {&FilaDeArchivo::ancho, "width", "Text2_0"},
}};

constexpr std::array<CeldaDeUnaLinea<FilaDeTransaccion>, 4> celdasDeTransaccion = {{
    {&FilaDeTransaccion::programa, "program", "Text6_0"},
    {&FilaDeTransaccion::dynpro, "dynpro", "Text3_0"},
    {&FilaDeTransaccion::campo, "field", "Text4_0"},
    {&FilaDeTransaccion::valor, "value", "Text5_0"},
}};

struct Marca {
    int numero;
    const char* nombre;
};

constexpr std::array<Marca, 4> marcasDeTexto = {{{2, "file"}, {4, "description"}, {6, "rows per screen"}, {7, "keys"}}};

struct OpcionDeUnaLinea {
    std::string Opciones::*opcion;
    const char* nombre;
};

constexpr std::array<OpcionDeUnaLinea, 12> opcionesDeUnaLinea = {{
    {&Opciones::Programa, "Programa"},
    {&Opciones::ArchivoFuente, "ArchivoFuente"},
    {&Opciones::Identificadores, "Identificadores"},
    {&Opciones::NombreManual, "NombreManual"},
    {&Opciones::SpaceCode, "SpaceCode"},
    {&Opciones::TablaZ, "TablaZ"},
    {&Opciones::ProgID, "ProgID"},
    {&Opciones::Functional, "Functional"},
    {&Opciones::Technical, "Technical"},
    {&Opciones::DescripcionStatus, "DescripcionStatus"},
    {&Opciones::ModuleCombo, "ModuleCombo"},
    {&Opciones::PrioridadCombo, "PrioridadCombo"},
}};

std::string EnFila(const std::string& que, int fila, const char* lado) {
    return que + " in row " + std::to_string(fila) + " of the " + lado;
}

class Busqueda {
public:
    // `lugar` tells of the place once it is known that there is something to tell.
    template <typename Lugar>
    void Buscar(std::string_view texto, Lugar lugar) {
        if (texto.empty()) return;
        const auto control = std::find_if(texto.begin(), texto.end(), EsControl);
        if (control == texto.end()) return;
        hallados_.push_back(lugar());
        hallados_.back().caracter = static_cast<unsigned char>(*control);
    }

    template <typename Fila, typename Celdas>
    void BuscarEnFila(Tabla tabla, int numero, const Fila& fila, const Celdas& celdas, const char* lado) {
        int columna = -1;
        for (const auto& celda : celdas) {
            ++columna;
            Buscar(fila.*celda.texto, [&]() -> CaracterDeControl {
                const bool delArchivo = tabla == Tabla::Archivo;
                return {delArchivo ? Lugar::EnArchivo(numero, columna) : Lugar::EnPrograma(numero, columna), tabla, numero,
                        celda.control, EnFila(std::string("the cell \"") + celda.nombre + '"', numero, lado)};
            });
        }
    }

    // A mark that can't be read is the failure of every run, before a line is made of it.
    void BuscarEnMarcas(int numero, const std::string& nota) {
        if (!Contiene(nota, "!")) return;
        try {
            if (!EsCabezaStepLoop(nota)) return;
            for (const auto& marca : marcasDeTexto) {
                Buscar(ValorDeMarca(nota, marca.numero), [&]() -> CaracterDeControl {
                    return {Lugar::EnPrograma(numero, 4), Tabla::Transaccion, numero, "",
                            EnFila(std::string("the step-loop's ") + marca.nombre, numero, "program side")};
                });
            }
        } catch (const FalloDeEjecucion&) {
            return;
        }
    }

    template <typename Fila>
    void BuscarEnNombres(const std::vector<Fila>& tabla, Lugar::Parte parte, const char* lado) {
        for (std::size_t r = 0; r < tabla.size(); ++r) {
            const int fila = static_cast<int>(r);
            Buscar(tabla[r].nombre, [&]() -> CaracterDeControl {
                return {Lugar::De(parte, fila, 0), std::nullopt, fila, "", EnFila("the name", fila, lado)};
            });
        }
    }

    std::vector<CaracterDeControl> Hallados() { return std::move(hallados_); }

private:
    std::vector<CaracterDeControl> hallados_;
};

}  // namespace

std::vector<CaracterDeControl> BuscarCaracteresDeControl(const Especificacion& especificacion, const Opciones& opciones) {
    Busqueda busqueda;
    int r = 0;
    for (const auto& fila : especificacion.TablaArchivo)
        busqueda.BuscarEnFila(Tabla::Archivo, r++, fila, celdasDeArchivo, "file side");
    r = 0;
    for (const auto& fila : especificacion.TablaTransaccion) {
        busqueda.BuscarEnFila(Tabla::Transaccion, r, fila, celdasDeTransaccion, "program side");
        busqueda.BuscarEnMarcas(r++, fila.nota);
    }
    busqueda.BuscarEnNombres(especificacion.TablaCondiciones, Lugar::Parte::Condiciones, "conditions");
    busqueda.BuscarEnNombres(especificacion.TablaBAPIs, Lugar::Parte::BAPIs, "BAPIs");
    for (const auto& [opcion, nombre] : opcionesDeUnaLinea) {
        busqueda.Buscar(opciones.*opcion, [control = nombre]() -> CaracterDeControl {
            return {Lugar::EnOpcion(control), std::nullopt, 0, control, std::string("the option ") + control};
        });
    }
    return busqueda.Hallados();
}

Mensaje MensajeDe(const CaracterDeControl& caracter) {
    constexpr std::string_view cifras = "0123456789ABCDEF";
    const std::string codigo{cifras[caracter.caracter / 16U], cifras[caracter.caracter % 16U]};
    Mensaje mensaje = MensajeLiteral("A control character (" + codigo + ") stands in " + caracter.lugar + ".");
    const auto enFila = [](int fila) { return " in row " + std::to_string(fila) + " of the "; };
    mensaje.enPantalla = ReemplazarTodo(mensaje.texto, enFila(caracter.fila), enFila(caracter.fila + 1));
    return mensaje;
}

bool SinCaracteresDeControl(const Especificacion& especificacion, const Opciones& opciones, Vista& vista) {
    const auto hallados = BuscarCaracteresDeControl(especificacion, opciones);
    if (hallados.empty()) return true;
    const auto& primero = hallados.front();
    if (primero.tabla) vista.MostrarFila(*primero.tabla, primero.fila);
    if (!primero.control.empty()) vista.Enfocar(primero.control);
    vista.Advertir(MensajeDe(primero));
    return false;
}

}  // namespace qor
