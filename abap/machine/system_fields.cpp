#include "abap/machine/program.h"

namespace qor::abap {

const Estructura& EstructuraSY() {
    static const Estructura sy = [] {
        Estructura estructura;
        estructura.nombre = "SY";
        const TipoDeCampo entero{Tipo::I, 4};
        const auto texto = [](std::uint32_t largo) { return TipoDeCampo{Tipo::C, largo}; };
        for (const char* nombre : {"INDEX", "TABIX", "TFILL", "SUBRC", "FDPOS", "DBCNT", "TLENG", "TOCCU", "LILLI", "LSIND",
                                   "LINNO", "COLNO", "PAGNO", "LINCT", "LINSZ", "STACO", "STARO", "CUCOL", "CUROW"}) {
            estructura.Agregar(nombre, entero);
        }
        estructura.Agregar("DATUM", {Tipo::D, 8});
        estructura.Agregar("DATLO", {Tipo::D, 8});
        estructura.Agregar("UZEIT", {Tipo::T, 6});
        estructura.Agregar("TIMLO", {Tipo::T, 6});
        estructura.Agregar("UNAME", texto(12));
        estructura.Agregar("MANDT", texto(3));
        estructura.Agregar("SYSID", texto(8));
        estructura.Agregar("SAPRL", texto(4));
        estructura.Agregar("HOST", texto(8));
        estructura.Agregar("OPSYS", texto(10));
        estructura.Agregar("DBSYS", texto(10));
        estructura.Agregar("LANGU", texto(1));
        estructura.Agregar("TCODE", texto(20));
        estructura.Agregar("UCOMM", texto(70));
        estructura.Agregar("PFKEY", texto(20));
        estructura.Agregar("TITLE", texto(70));
        estructura.Agregar("REPID", texto(40));
        estructura.Agregar("CPROG", texto(40));
        estructura.Agregar("LDBPG", texto(40));
        estructura.Agregar("DYNGR", texto(4));
        estructura.Agregar("DYNNR", texto(4));
        estructura.Agregar("MSGID", texto(20));
        estructura.Agregar("MSGTY", texto(1));
        estructura.Agregar("MSGNO", {Tipo::N, 3});
        for (const char* nombre : {"MSGV1", "MSGV2", "MSGV3", "MSGV4"}) estructura.Agregar(nombre, texto(50));
        estructura.Agregar("LISEL", texto(255));
        estructura.Agregar("BATCH", texto(1));
        estructura.Agregar("BINPT", texto(1));
        estructura.Agregar("CALLD", texto(1));
        estructura.Agregar("VLINE", texto(1));
        estructura.Agregar("ULINE", texto(255));
        estructura.Cerrar();
        return estructura;
    }();
    return sy;
}

}  // namespace qor::abap
