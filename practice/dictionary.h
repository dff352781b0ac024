#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "abap/surroundings.h"
#include "practice/catalogue.h"
#include "practice/database.h"
#include "practice/dictionary_file.h"

// The types of names, looked for in this order: tables of the practice system; dictionary files, of which the later one wins; width
// files; the structures of the catalogue, whose fields are known, but no lengths. What
// nobody knows is C of 255, and is told once for each name that was asked for.
namespace qor {

constexpr std::uint32_t largoSupuesto = 255;

class DiccionarioDePractica : public abap::Diccionario {
public:
    // Told "BAPISDHD1: length not known, taken as C 255".
    using Aviso = std::function<void(const std::string& texto)>;

    // `catalogo` is the text of a catalogue of BAPIs (bapi/catalogue.h), or nothing.
    DiccionarioDePractica(BaseDePractica& base, std::string catalogo, Aviso aviso = {});
    DiccionarioDePractica(const DiccionarioDePractica&) = delete;
    DiccionarioDePractica& operator=(const DiccionarioDePractica&) = delete;

    // Takes a dictionary file in. One that is missing is none where it need not be there. Throws FalloDeArchivo, with the line.
    void AgregarArchivo(const std::filesystem::path& archivo, bool obligatorio);
    // The text of a width file (sap/widths.h); lines without a length are passed over.
    void AgregarAnchos(std::string_view texto);

    const abap::Estructura& BuscarEstructura(const abap::NombreUsado& nombre) override;
    abap::TipoDeCampo BuscarCampo(std::string_view estructura, std::string_view componente) override;
    std::optional<abap::TipoDeCampo> BuscarElemento(std::string_view nombre) override;
    bool EsTabla(std::string_view nombre) override;

    // ---- For the tables that show the dictionary itself ----

    const EntradasDeDiccionario& Entradas() const { return entradas_; }
    const std::map<std::string, std::map<std::string, std::uint32_t, std::less<>>, std::less<>>& Anchos() const { return anchos_; }
    CatalogoDePractica& Catalogo() { return catalogo_; }

private:
    // Components with the types that are known; `supuesta` where one of them is not.
    struct Hallada {
        abap::Estructura estructura;
        bool supuesta = false;
    };

    std::optional<abap::TipoDeCampo> BuscarConocido(std::string_view estructura, std::string_view componente);
    Hallada Hallar(const abap::NombreUsado& nombre);
    void Avisar(std::string_view nombre);

    BaseDePractica& base_;
    CatalogoDePractica catalogo_;
    Aviso aviso_;
    EntradasDeDiccionario entradas_;
    std::map<std::string, std::map<std::string, std::uint32_t, std::less<>>, std::less<>> anchos_;
    std::map<std::string, std::unique_ptr<abap::Estructura>> estructuras_;  // by name, and by what was used of an unknown one
    std::set<std::string, std::less<>> avisados_;
};

}  // namespace qor
