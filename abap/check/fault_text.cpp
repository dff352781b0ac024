#include "abap/check/fault_text.h"

namespace qor::abap {

std::string TextoDeFalta(const Falta& falta) {
    const std::string& nombre = falta.nombre;
    const std::string otra = ", line " + std::to_string(falta.otraLinea);
    switch (falta.clase) {
        case Falta::Clase::LiteralAbierto: return "the literal is not closed";
        case Falta::Clase::SentenciaSinPunto: return "the statement has no point at its end";
        case Falta::Clase::NoEsSentencia: return nombre + " can't stand here";
        case Falta::Clase::PalabrasDeMas: return "the statement should end in front of " + nombre;
        case Falta::Clase::OperandoAusente: return "something is missing behind " + nombre;
        case Falta::Clase::NombreSinDeclarar: return nombre + " is not declared";
        case Falta::Clase::NombreRepetido: return nombre + " is declared twice" + otra;
        case Falta::Clase::NombreInvalido: return nombre + " is no name";
        case Falta::Clase::NombreLargo: return nombre + " is too long for a name";
        case Falta::Clase::ComponenteAjeno: return nombre + " is no component of its structure";
        case Falta::Clase::ComponenteRepetido: return "the structure has two components " + nombre + otra;
        case Falta::Clase::RegistroVacio: return "the structure " + nombre + " has no components";
        case Falta::Clase::LargoInvalido: return nombre + " has a length that no field can have";
        case Falta::Clase::FueraDelCampo: return nombre + " leads out of its field";
        case Falta::Clase::FormaSinDefinir: return "there is no FORM " + nombre;
        case Falta::Clase::FormaRepetida: return "the FORM " + nombre + " is there already" + otra;
        case Falta::Clase::BloqueAbierto: return nombre + " begins or ends a block without its other end";
        case Falta::Clase::SQLNativo: return "the native SQL can't be right at " + nombre;
        case Falta::Clase::ConstanteCambiada: return nombre + " is a constant and can't be changed";
        case Falta::Clase::NoEsTabla: return nombre + " is no internal table";
    }
    return {};
}

}  // namespace qor::abap
