#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/specification.h"

namespace qor {

// How a file field relates to a step-loop group.
enum class ClaseCampo { Ninguna = 0, DelGrupo = 1, DeOtroGrupo = 2, Clave = 3 };

// What the program side means: which operations and step-loop groups its rows form. Worked out by ActualizarOperaciones from a
// specification as it stands then; groups are numbered from 1 in table order, and 0 is the main record.
class Operaciones {
public:
    bool HayBAPI = false;
    bool HayTransaccion = false;
    std::string TipoFilaConsultada;  // "TRANS" or "BAPI": the kind of operation of the row that was asked for

    int OperacionFila(int fila) const { return grupo_[static_cast<std::size_t>(fila)]; }
    bool FilaEnStepLoop(int fila) const { return OperacionFila(fila) > 0; }

    // Rows in front of the first blank one that belong to group n.
    int ContarFilasOperacion(int n) const { return filasPorGrupo_[static_cast<std::size_t>(n)]; }

    // The group of the last row whose value cell names the field; 0 when none does.
    int OperacionDeCampo(std::string_view campo) const;

    // Class of a field in group n, 0 included. A name that is part of a longer key name counts as a key, and a later row overrides
    // an earlier one. Throws FalloDeEjecucion when a row of the group has its marks in the wrong order.
    ClaseCampo ClaseCampoEnOperacion(std::string_view campo, int n) const;

    // The same for the name of a file row in front of the first blank one.
    int OperacionDeCampo(int filaArchivo) const { return usoDeCampo_[static_cast<std::size_t>(filaArchivo)].ultimoGrupo; }
    ClaseCampo ClaseCampoEnOperacion(int filaArchivo, int n) const;

    // Number of file fields of group n, and of its key fields.
    int ContarCamposOperacion(int n) const { return camposPorGrupo_[static_cast<std::size_t>(n)]; }
    int ContarCamposClave(int n) const;

private:
    friend Operaciones ActualizarOperaciones(const Especificacion&, int);

    struct Uso {
        int ultimoGrupo = 0;    // group of the last row that names the field
        int filaConGrupo = -1;  // last row with a group that names it
        int grupoDeEsaFila = 0;
    };
    struct Claves {
        int fila;
        std::string texto;
        bool marcasInvertidas;
    };

    void Clasificar(const Especificacion& especificacion, int fila);
    void Numerar(int filas);
    void Indexar(const Especificacion& especificacion, int filas);
    ClaseCampo ClaseDeUso(const Uso& uso, std::string_view campo, int n) const;

    std::vector<int> grupo_ = std::vector<int>(filasTabla, 0);
    std::unordered_map<std::string, Uso> usos_;                                               // by value cell, cut
    std::vector<std::vector<Claves>> claves_ = std::vector<std::vector<Claves>>(filasTabla);  // by group
    std::vector<int> filasPorGrupo_ = std::vector<int>(filasTabla, 0);
    std::vector<int> camposPorGrupo_ = std::vector<int>(filasTabla, 0);
    std::vector<std::string> campos_;
    std::vector<Uso> usoDeCampo_;  // parallel to campos_
};

Operaciones ActualizarOperaciones(const Especificacion& especificacion, int fila);

// Number of heads in rows 0 to 1000, blank rows or not.
int ContarStepLoops(const Especificacion& especificacion);

// Heads in rows 0 to 1000, blank rows or not, in order.
std::vector<int> CabezasStepLoop(const Especificacion& especificacion);

// Row of the n-th head in front of the first blank row; 0 when there is none.
int FilaDeStepLoop(const Especificacion& especificacion, int n);

// The screen of a row and the OK code that is sent on it.
struct OkCode {
    std::string programa;
    std::string dynpro;  // with ";" and a condition behind it where it has one
    std::string valor;   // the value cell, empty when the screen has no OK code
    std::string CondicionOkCode;
    int filaDePantalla = -1;  // the rows that these come from; -1 for none
    int filaDeOkCode = -1;
};

OkCode BuscarOkCode(const Especificacion& especificacion, int fila);

}  // namespace qor
