#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "abap/surroundings.h"
#include "practice/bapi_calls.h"
#include "practice/bdc_functions.h"
#include "practice/catalogue.h"
#include "practice/file_names.h"

namespace qor {

// The function modules that the practice system has. What has no module of its own here is a BAPI where its name begins with BAPI
// or with a namespace such as /ABC/, where the catalogue has it, or where the specification lists it; any other is the dump
// CALL_FUNCTION_NOT_FOUND.
class FuncionesDePractica : public abap::Funciones {
public:
    // What it is given has to live as long as it. `base` tells the listener of its commits and rollbacks.
    FuncionesDePractica(FuncionesDeSesion& sesiones, LlamadasDeBapi& bapis, CatalogoDePractica& catalogo,
                        NombresDeArchivos& archivos, abap::BaseDeDatos& base);

    // A function module that the specification calls as a BAPI.
    void AgregarBapi(std::string_view nombre) { deLaEspecificacion_.emplace(nombre); }

    std::string Llamar(const abap::LlamadaAFuncion& llamada) override;

private:
    using Modulo = std::string (*)(FuncionesDePractica&, const abap::LlamadaAFuncion&);
    struct Entrada;
    static const Entrada modulos_[];

    bool EsBapi(std::string_view nombre);
    std::string LlamarMESSAGE_PREPARE(const abap::LlamadaAFuncion& llamada);
    std::string LlamarDOCU_GET(const abap::LlamadaAFuncion& llamada);
    std::string TerminarUnidad(const abap::LlamadaAFuncion& llamada, bool confirmar);

    FuncionesDeSesion& sesiones_;
    LlamadasDeBapi& bapis_;
    CatalogoDePractica& catalogo_;
    NombresDeArchivos& archivos_;
    abap::BaseDeDatos& base_;
    ConjuntoDeTextos deLaEspecificacion_;
};

}  // namespace qor
