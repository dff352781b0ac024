#include "app/autosave.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <cerrno>
#include <csignal>
#include <functional>

#include "base/failure.h"
#include "base/files.h"
#include "editor/document_commands.h"
#include "model/document_file.h"
#include "tests/support/failing_calls.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

namespace fs = std::filesystem;

struct Copias : testing::Test {
    DirectorioTemporal directorio;
    fs::path lugar = directorio / "unsaved";
    VentanaDePrueba prueba;
    CopiasDeTrabajo copias{lugar};

    std::size_t Cuantas() const {
        std::error_code error;
        std::size_t cuantas = 0;
        for (fs::directory_iterator i(lugar, error), fin; !error && i != fin; i.increment(error)) ++cuantas;
        return cuantas;
    }
#ifndef LEFT_OUT_Copias_AKilledProgramsWorkComesBackWhole
    // What a program that is killed leaves behind.
    static void EnOtroProceso(const std::function<void()>& accion) {
        const pid_t hijo = ::fork();
        if (hijo == 0) {
            accion();
            ::kill(::getpid(), SIGKILL);
        }
        ::waitpid(hijo, nullptr, 0);
    }
#endif
};

#ifndef LEFT_OUT_Copias_AKilledProgramsWorkComesBackWhole
TEST_F(Copias, AKilledProgramsWorkComesBackWhole) {
    const auto ruta = directorio / "a%b\n.qor";
    EnOtroProceso([&] {
        prueba.Archivo({"A|1|note|code\r\nmore", "", "BEHIND|2"});
        prueba.Transaccion({"TRANS|T", "", "", "||F|'x'|n!1 1"});
        prueba.documento.opciones.Notes = "\"quoted\"";
        GuardarDocumentoComo(prueba.documento, directorio / "gap.qor", prueba.textos, prueba.vista);  // refused: a gap
        prueba.documento.ruta = ruta;
        prueba.documento.Cambiar();
        copias.Actualizar(prueba.documento);
        prueba.PonerArchivo(2, "LATER|3");
        prueba.documento.Cambiar();
        copias.Actualizar(prueba.documento);
    });
    auto abandonadas = copias.Abandonadas();
    ASSERT_EQ(abandonadas.size(), 1U);
    EXPECT_EQ(fs::status(lugar).permissions(), fs::perms::owner_all);
    // As long as one program looks at it, another one doesn't get it.
    EXPECT_TRUE(CopiasDeTrabajo(lugar).Abandonadas().empty());
    RestaurarTrabajo(prueba.ventana, std::move(abandonadas[0].documento));
    copias.Adoptar(abandonadas[0], prueba.documento);
    EXPECT_EQ(prueba.FilasArchivo(), (std::vector<std::string>{"A|1|note|code\r\nmore", "", "LATER|3"}));
    EXPECT_EQ(prueba.FilaTransaccion(3), "||F|'x'|n!1 1");
    EXPECT_EQ(prueba.Texto({Columna::CampoDeArchivo, 2}), "LATER");
    EXPECT_EQ(prueba.documento.opciones.Notes, "\"quoted\"");
    EXPECT_TRUE(prueba.documento.ruta == ruta && prueba.documento.HayCambios());
    EXPECT_TRUE(CopiasDeTrabajo(lugar).Abandonadas().empty()) << "the restored work is still safe";
    prueba.documento.DarPorGuardado();
    copias.QuitarSiGuardado(prueba.documento);
    EXPECT_EQ(Cuantas(), 0U);
}
#endif

TEST_F(Copias, RunningProgramsKeepTheirs) {
    VentanaDePrueba otra;
    CopiasDeTrabajo deLaOtra(lugar);
    prueba.documento.Cambiar();
    otra.documento.Cambiar();
    copias.Actualizar(prueba.documento);
    deLaOtra.Actualizar(otra.documento);
    EXPECT_EQ(Cuantas(), 2U);
    EXPECT_TRUE(copias.Abandonadas().empty());
    // A failing copy leaves the one before; nothing unsaved needs none.
    prueba.documento.Cambiar();
    {
        const FalloProvocado lleno(LlamadaDeArchivo::LlevarAlDisco, 1, ENOSPC);
        EXPECT_THROW(copias.Actualizar(prueba.documento), FalloDeArchivo);
    }
    EXPECT_EQ(Cuantas(), 2U);
    copias.Actualizar(prueba.documento);
    deLaOtra.Quitar();
    EXPECT_EQ(Cuantas(), 1U);
    prueba.documento.DarPorGuardado();
    copias.Actualizar(prueba.documento);
    EXPECT_EQ(Cuantas(), 0U);
}

#ifndef LEFT_OUT_Copias_RestoredWorkNeverTakesADocumentFromAnother
TEST_F(Copias, RestoredWorkNeverTakesADocumentFromAnother) {
    const auto ruta = directorio / "doc.qor";
    prueba.Archivo({"OLD|1"});
    ASSERT_TRUE(GuardarDocumentoComo(prueba.documento, ruta, prueba.textos, prueba.vista));
    EnOtroProceso([&] {
        prueba.PonerArchivo(0, "NEW|1");
        prueba.documento.Cambiar();
        copias.Actualizar(prueba.documento);
    });
    const std::string viejo = LeerArchivo(ruta);
    for (const bool enUso : {true, false}) {
        if (!enUso) prueba.documento.canal.Cerrar();
        VentanaDePrueba otra;
        RestaurarTrabajo(otra.ventana, std::move(copias.Abandonadas().at(0).documento));
        EXPECT_EQ(otra.FilaArchivo(0), "NEW|1");
        EXPECT_EQ(otra.documento.ruta.empty(), enUso);
        EXPECT_EQ(otra.vista.TomarAvisos(), enUso ? "<335>" : "");
        EXPECT_EQ(LeerArchivo(ruta), viejo);
    }
    // The document changed since the copy was made: the save asks.
    directorio.Escribir("doc.qor", "1,\"THEIRS\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n");
    VentanaDePrueba otra;
    RestaurarTrabajo(otra.ventana, std::move(copias.Abandonadas().at(0).documento));
    EXPECT_FALSE(SaveOption(otra.ventana));
    EXPECT_NE(otra.vista.TomarAvisos().find("Another program has changed"), std::string::npos);
}
#endif

TEST_F(Copias, WhatIsNoCopyIsPassedOver) {
    fs::create_directory(lugar);
    for (const char* const texto : {"", "QORWORK 1\r\n", "QORWORK 2\r\n\r\n\r\n1,2", "QORWORK 1\r\n/x\r\n1 2\r\n1,\"A"}) {
        directorio.Escribir("unsaved/x.qorwork", texto);
        EXPECT_TRUE(copias.Abandonadas().empty()) << texto;
        EXPECT_EQ(Cuantas(), 1U);
    }
}

}  // namespace
}  // namespace qor::pruebas
