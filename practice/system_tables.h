#pragma once

#include <string>

#include "practice/database.h"
#include "practice/dictionary.h"

// Tables that the practice system has without anybody having made them: those that dictionary files define. The ones of the system
// itself show what it holds, and can't be written to: T000, TRDIR, APQI, DD03L, TFDIR, TFTIT, DOKHL, FUPARAREF, SWOTLV. All others
// are empty until a report fills them.
namespace qor {

class TablasDelSistema : public ProveedorDeTablas {
public:
    // Registers itself with the database for as long as it lives.
    TablasDelSistema(BaseDePractica& base, DiccionarioDePractica& diccionario);
    TablasDelSistema(const TablasDelSistema&) = delete;
    TablasDelSistema& operator=(const TablasDelSistema&) = delete;
    ~TablasDelSistema() override;

    std::optional<TablaProvista> Proveer(std::string_view nombre) override;

private:
    BaseDePractica& base_;
    DiccionarioDePractica& diccionario_;
};

}  // namespace qor
