#include "base/files.h"

#include <gmock/gmock.h>
#ifndef _WIN32
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <cerrno>
#include <cstdlib>
#include <functional>
#include <set>
#include <sstream>

#include "app/command_line.h"
#include "app/settings.h"
#include "base/failure.h"
#include "base/messages.h"
#include "base/new_file.h"
#include "tests/support/environment.h"
#include "tests/support/failing_calls.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

// The detail of the failure of an action; empty when it went well.
std::string DetalleDe(const std::function<void()>& accion) {
    try {
        accion();
        return "";
    } catch (const FalloDeArchivo& fallo) {
        return fallo.Detalle();
    }
}

std::set<std::string> Nombres(const DirectorioTemporal& directorio) {
    std::set<std::string> nombres;
    for (const auto& entrada : fs::directory_iterator(directorio.Ruta())) nombres.insert(entrada.path().filename().string());
    return nombres;
}

unsigned PermisosDe(const fs::path& ruta) { return static_cast<unsigned>(fs::status(ruta).permissions()); }

struct NewFile : testing::Test {
    DirectorioTemporal directorio;
};

#ifndef LEFT_OUT_NewFile_KeepsLinksAndPermissions
TEST_F(NewFile, KeepsLinksAndPermissions) {
    const auto ruta = directorio.Escribir("a.qor", "old");
    fs::create_directory(directorio / "links");
    fs::create_symlink("../a.qor", directorio / "links/inner.qor");
    fs::create_symlink("links/inner.qor", directorio / "outer.qor");
    fs::create_symlink("missing.qor", directorio / "dangling.qor");
    for (const mode_t permisos : {0600u, 0640u, 0664u, 0604u}) {
        fs::permissions(ruta, static_cast<fs::perms>(permisos));
        GuardarArchivo(directorio / "outer.qor", "new" + std::to_string(permisos));
        EXPECT_EQ(LeerArchivo(ruta), "new" + std::to_string(permisos));
        EXPECT_EQ(PermisosDe(ruta), permisos);
    }
    EXPECT_TRUE(fs::is_symlink(directorio / "outer.qor") && fs::is_symlink(directorio / "links/inner.qor"));
    ::chmod(ruta.c_str(), 04755);
    GuardarArchivo(ruta, "no set-id");
    EXPECT_EQ(PermisosDe(ruta), 0755u);

    const mode_t mascara = ::umask(027);
    GuardarArchivo(directorio / "dangling.qor", "made");
    ::umask(mascara);
    EXPECT_TRUE(fs::is_symlink(directorio / "dangling.qor"));
    EXPECT_EQ(LeerArchivo(directorio / "missing.qor"), "made");
    EXPECT_EQ(PermisosDe(directorio / "missing.qor"), 0640u);
    EXPECT_EQ(Nombres(directorio), (std::set<std::string>{"a.qor", "links", "outer.qor", "dangling.qor", "missing.qor"}));
}
#endif

#ifndef LEFT_OUT_NewFile_KeepsTheOwner
TEST_F(NewFile, KeepsTheOwner) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give files away";
    const auto ruta = directorio.Escribir("a.qor", "old");
    ASSERT_EQ(::chown(ruta.c_str(), 1234, 2345), 0);
    const auto dueno = [&] {
        struct stat datos {};
        ::stat(ruta.c_str(), &datos);
        return std::pair(datos.st_uid, datos.st_gid);
    };
    GuardarArchivo(ruta, "new");
    EXPECT_EQ(dueno(), std::pair(uid_t{1234}, gid_t{2345}));
    ::chmod(ruta.c_str(), 0664);
    {
        const FalloProvocado fallo(LlamadaDeArchivo::DarDueno, 1, EPERM);
        GuardarArchivo(ruta, "the group alone");
    }
    EXPECT_EQ(dueno(), std::pair(uid_t{0}, gid_t{2345}));
    EXPECT_EQ(PermisosDe(ruta), 0664u);
    ASSERT_EQ(::chown(ruta.c_str(), 1234, 2345), 0);
    PonerTrampa([](LlamadaDeArchivo llamada) { return llamada == LlamadaDeArchivo::DarDueno ? EPERM : 0; });
    GuardarArchivo(ruta, "neither");
    PonerTrampa({});
    EXPECT_EQ(dueno(), std::pair(uid_t{0}, gid_t{0}));
    EXPECT_EQ(PermisosDe(ruta), 0644u);  // our own group has no more rights than all others
}
#endif

#ifndef LEFT_OUT_NewFile_LeavesAUsersFilesAlone
// Names under which work files could come.
TEST_F(NewFile, LeavesAUsersFilesAlone) {
    const auto ruta = directorio.Escribir("a.qor", "old");
    const auto suyo = directorio.Escribir("a.TMP", "the user's own");
    const auto otro = directorio.Escribir("precious", "the user's own");
    for (const bool conNombre : {false, true}) {
        // Without unnamed files the work file is made under a name, else it gets one at the end.
        PonerTrampa([conNombre, abiertos = 0](LlamadaDeArchivo llamada) mutable {
            return conNombre && llamada == LlamadaDeArchivo::Abrir && ++abiertos == 2 ? EOPNOTSUPP : 0;
        });
        GuardarArchivo(ruta, "new");
        EXPECT_EQ(LeerArchivo(ruta), "new");
        EXPECT_EQ(LeerArchivo(directorio / "a.TMP"), "the user's own");
        fs::remove(directorio / "a.TMP");
        fs::create_symlink(otro, directorio / "a.TMP");
    }
    PonerTrampa({});
    GuardarArchivo(ruta, "newer");
    EXPECT_EQ(LeerArchivo(otro), "the user's own");
    EXPECT_TRUE(fs::is_symlink(directorio / "a.TMP"));
    EXPECT_EQ(Nombres(directorio), (std::set<std::string>{"a.qor", "a.TMP", "precious"}));
}
#endif

#ifndef LEFT_OUT_NewFile_WorkFileIsTheUsersAlone
TEST_F(NewFile, WorkFileIsTheUsersAlone) {
    const auto ruta = directorio.Escribir("a.qor", "old");
    PonerTrampa([abiertos = 0](LlamadaDeArchivo llamada) mutable {
        return llamada == LlamadaDeArchivo::Abrir && ++abiertos == 2 ? EOPNOTSUPP : 0;
    });
    {
        ArchivoNuevo nuevo(ruta);
        EXPECT_EQ(PermisosDe(directorio / "a.TMP"), 0600u);
        EXPECT_EQ(DetalleDe([&] { ArchivoNuevo otro(ruta); }), "The file is in use: " + ruta.string());
    }
    PonerTrampa({});
    EXPECT_EQ(Nombres(directorio), (std::set<std::string>{"a.qor"}));
    EXPECT_EQ(LeerArchivo(ruta), "old");
}
#endif

TEST_F(NewFile, IsRefusedWhereTheOldOneMustStay) {
    const auto ruta = directorio.Escribir("a.qor", "old");
    fs::create_directory(directorio / "dir");
    auto propio = ArchivoBloqueado::Abrir(ruta);
    const auto detalle = [&](const char* nombre) { return DetalleDe([&] { GuardarArchivo(directorio / nombre, "new"); }); };
    const auto esperado = [&](const char* que, const char* nombre) { return que + (": " + (directorio / nombre).string()); };
#ifndef _WIN32
    fs::create_symlink("a.qor", directorio / "link.qor");
    fs::create_symlink("loop", directorio / "loop");
    EXPECT_EQ(detalle("link.qor"), esperado("The file is in use", "link.qor"));
    EXPECT_EQ(detalle("loop"), esperado("Too many levels of symbolic links", "loop"));
#endif
    EXPECT_EQ(detalle("dir"), esperado("Is a directory", "dir"));
    EXPECT_EQ(detalle("no/place"), esperado("No such file or directory", "no/place"));
    EXPECT_EQ(LeerArchivo(ruta), "old");

    // The caller's own lock is no hindrance, and the answer goes on holding the file.
    ArchivoNuevo nuevo(ruta, ".TMP", &propio);
    nuevo.Escribir("new");
    auto guardado = nuevo.PonerEnSuLugar(propio.Identidad());
    propio.Cerrar();
    EXPECT_EQ(guardado.LeerTodo(), "new");
    EXPECT_EQ(guardado.Identidad(), Identidad(ruta));
    EXPECT_EQ(detalle("a.qor"), esperado("The file is in use", "a.qor"));

    // A file that is no longer the one that was read.
    const auto leida = guardado.Identidad();
    for (const char* que : {"changed", "replaced", "removed"}) {
        if (que == std::string("changed")) directorio.Escribir("a.qor", "another text");
        if (que == std::string("replaced")) ReemplazarArchivo(directorio.Escribir("b.qor", "new"), ruta);
        if (que == std::string("removed")) fs::remove(ruta);
        EXPECT_EQ(DetalleDe([&] {
                      ArchivoNuevo otro(ruta, ".TMP", &guardado);
                      otro.PonerEnSuLugar(leida);
                  }),
                  esperado("Another program has changed the file", "a.qor"))
            << que;
    }
    EXPECT_FALSE(fs::exists(ruta));
}

#ifndef LEFT_OUT_NewFile_WritesPipesAndDevicesWhereTheyStand
TEST_F(NewFile, WritesPipesAndDevicesWhereTheyStand) {
    const auto tubo = directorio / "pipe";
    ASSERT_EQ(::mkfifo(tubo.c_str(), 0600), 0);
    const Descriptor lector(::open(tubo.c_str(), O_RDONLY | O_NONBLOCK));
    GuardarArchivo(tubo, "through");
    char leido[16] = {};
    EXPECT_EQ(::read(lector.Valor(), leido, sizeof leido), 7);
    EXPECT_STREQ(leido, "through");
    EXPECT_TRUE(fs::is_fifo(tubo));
    EXPECT_EQ(DetalleDe([] { GuardarArchivo("/dev/full", "x"); }), "No space left on device: /dev/full");
    EXPECT_EQ(DetalleDe([] { GuardarArchivo("/dev/null", "x"); }), "");
    EXPECT_EQ(DetalleDe([&] { LeerArchivo(tubo); }), "Not a regular file: " + tubo.string());

    // A file that is open in this process keeps its place.
    const auto ruta = directorio.Escribir("out", "longer than before");
    const Descriptor abierto(::open(ruta.c_str(), O_RDWR));
    GuardarArchivo("/proc/self/fd/" + std::to_string(abierto.Valor()), "new");
    EXPECT_EQ(::pread(abierto.Valor(), leido, sizeof leido, 0), 3);
}
#endif

TEST_F(NewFile, LargeFilesAreRefusedNotHeld) {
    const auto ruta = directorio.Escribir("large", "");
    fs::resize_file(ruta, limiteDeArchivo + 1);
    EXPECT_EQ(DetalleDe([&] { LeerArchivo(ruta); }), "The file has more than 64 megabytes: " + ruta.string());
    fs::resize_file(ruta, 3);
    EXPECT_EQ(LeerArchivo(ruta, 3).size(), 3u);
}

#ifndef LEFT_OUT_NewFile_OnlyAMissingFileIsAbsent
TEST_F(NewFile, OnlyAMissingFileIsAbsent) {
    const auto ruta = directorio.Escribir("a", "");
    fs::create_symlink("nowhere", directorio / "dangling");
    EXPECT_TRUE(Existe(ruta));
    EXPECT_FALSE(Existe(directorio / "b") || Existe(ruta / "b") || Existe(directorio / "dangling"));
    EXPECT_TRUE(ExisteNombre(directorio / "dangling"));
    const FalloProvocado fallo(LlamadaDeArchivo::Mirar, 1, EIO);
    EXPECT_EQ(DetalleDe([&] { Existe(ruta); }), "Input/output error: " + ruta.string());
}
#endif

constexpr LlamadaDeArchivo todas[] = {
    LlamadaDeArchivo::Abrir,     LlamadaDeArchivo::Leer,        LlamadaDeArchivo::Escribir, LlamadaDeArchivo::LlevarAlDisco,
    LlamadaDeArchivo::Mirar,     LlamadaDeArchivo::LeerEnlace,  LlamadaDeArchivo::Bloquear, LlamadaDeArchivo::Truncar,
    LlamadaDeArchivo::Colocar,   LlamadaDeArchivo::DarPermisos, LlamadaDeArchivo::DarDueno, LlamadaDeArchivo::Nombrar,
    LlamadaDeArchivo::Renombrar, LlamadaDeArchivo::Borrar,      LlamadaDeArchivo::Cerrar,
};

// An action that writes over the file `destino` of its directory.
struct Escritura {
    std::string que;
    std::function<void(const DirectorioTemporal&)> preparar;
    const char* destino;
    // Answers what was told of a failure; nothing when it went well.
    std::function<std::string(const DirectorioTemporal&)> hacer;
};

// Every call of every kind fails once in turn: the old file or the new one is there, whole, nothing else, and the failure is told.
void FallarCadaLlamada(const Escritura& escritura) {
    const std::string raiz = fs::temp_directory_path().has_root_name() ? "" : "/";  // else every drive may be meant
    std::string nuevo;
    for (const auto llamada : todas) {
        for (int cual = 0;; ++cual) {
            const DirectorioTemporal directorio;
            escritura.preparar(directorio);
            const auto ruta = directorio / escritura.destino;
            fs::permissions(ruta, static_cast<fs::perms>(0640));
            const auto permisos = PermisosDe(ruta);
            const auto viejo = LeerArchivo(ruta);
            const auto nombres = Nombres(directorio);
            std::string dicho;
            bool ocurrio = true;
            {
                const FalloProvocado fallo(llamada, cual, EIO);
                dicho = escritura.hacer(directorio);
                ocurrio = fallo.Ocurrio();
            }
            const auto lugar =
                escritura.que + ", kind " + std::to_string(static_cast<int>(llamada)) + ", call " + std::to_string(cual);
            if (cual == 0) nuevo = LeerArchivo(ruta);  // nothing fails
            ASSERT_NE(nuevo, viejo) << lugar;
            EXPECT_EQ(LeerArchivo(ruta), dicho.empty() ? nuevo : viejo) << lugar;
            EXPECT_EQ(Nombres(directorio), nombres) << lugar;
            EXPECT_EQ(PermisosDe(ruta), permisos) << lugar;
            if (!dicho.empty()) EXPECT_THAT(dicho, HasSubstr("Input/output error: " + raiz)) << lugar;
            if (!ocurrio) break;
        }
    }
}

// A command of qorgen; "D/" in front of an argument is the directory. Answers what it said when it failed.
std::function<std::string(const DirectorioTemporal&)> Comando(std::vector<std::string> argumentos) {
    return [argumentos = std::move(argumentos)](const DirectorioTemporal& directorio) {
        std::vector<std::string> listos;
        for (const auto& argumento : argumentos)
            listos.push_back(argumento.starts_with("D/") ? (directorio / argumento.substr(2)).string() : argumento);
        std::ostringstream salida;
        std::ostringstream errores;
        return EjecutarQorgen(listos, salida, errores) == 0 ? "" : "qorgen: " + errores.str();
    };
}

void PrepararParaComandos(const DirectorioTemporal& directorio) {
    const fs::path ejemplos = fs::path(QOR_TEST_SOURCE_DIR) / "examples";
    fs::copy_file(ejemplos / "mm01/materials.qor", directorio / "a.qor");
    fs::copy_file(ejemplos / "data-sets/session.txt", directorio / "session.txt");
    fs::copy_file(ejemplos / "fb01/postings.qor", directorio / "b.qor");
    fs::copy_file(ejemplos / "recording/zmmrec.txt", directorio / "recording");
    directorio.Escribir("out.txt", "old");
    directorio.Escribir("Tessaline.ini", "a=1\r\n");
}

TEST(FailingCalls, LeaveTheOldFileOrTheNewOne) {
    PonerVariable("SOURCE_DATE_EPOCH", "1100000000");
    const std::string grande(3 << 20, 'n');
    const auto conViejo = [](const DirectorioTemporal& directorio) { directorio.Escribir("a.qor", "old"); };
    const Escritura escrituras[] = {
        {"an open document", conViejo, "a.qor",
         [&](const DirectorioTemporal& directorio) {
             return DetalleDe([&] {
                 auto propio = ArchivoBloqueado::Abrir(directorio / "a.qor");
                 ArchivoNuevo nuevo(directorio / "a.qor", ".TMP", &propio);
                 for (int i = 0; i < 3; ++i) nuevo.Escribir(std::string_view(grande).substr(0, 1 << 20));
                 nuevo.PonerEnSuLugar(propio.Identidad());
             });
         }},
        {"settings", PrepararParaComandos, "Tessaline.ini",
         [](const DirectorioTemporal& directorio) {
             return DetalleDe([&] {
                 ArchivoINI ini;
                 ini.CargarINI(directorio / "Tessaline.ini");
                 ini.EscribirClave("a", "2");
                 ini.GuardarINI(directorio / "Tessaline.ini");
             });
         }},
        {"a report", PrepararParaComandos, "out.txt",
         Comando({"generate", "D/a.qor", "-o", "D/out.txt", "--yes", "--settings", "D/"})},
        {"a print", PrepararParaComandos, "out.txt", Comando({"print", "D/a.qor", "-o", "D/out.txt", "--settings", "D/"})},
        {"widths", PrepararParaComandos, "out.txt", Comando({"widths", "D/a.qor", "--export", "D/out.txt", "--settings", "D/"})},
        {"a document", PrepararParaComandos, "b.qor", Comando({"convert", "D/a.qor", "-o", "D/b.qor", "--settings", "D/"})},
        {"an import", PrepararParaComandos, "b.qor",
         Comando({"import", "D/b.qor", "D/recording", "--replace", "--close-gaps", "--settings", "D/"})},
        {"a data set", PrepararParaComandos, "session.txt",
         Comando({"dataset", "D/session.txt", "--field", "RMMG1-MBRSH", "--new", "X", "--once", "--yes", "--settings", "D/"})},
    };
    for (const auto& escritura : escrituras) FallarCadaLlamada(escritura);
}

#ifndef LEFT_OUT_KilledWriter_LeavesTheOldFileOrTheNewOne
// Killed before any of its calls, a process leaves one of the two files, whole; and no work file but where it had got its name.
TEST(KilledWriter, LeavesTheOldFileOrTheNewOne) {
    for (int cual = 1;; ++cual) {
        const DirectorioTemporal directorio;
        const auto ruta = directorio.Escribir("a.qor", "old");
        const pid_t hijo = ::fork();
        if (hijo == 0) {
            PonerTrampa([cuenta = 0, cual](LlamadaDeArchivo llamada) mutable {
                if (++cuenta == cual) ::raise(SIGKILL);
                (void)llamada;
                return 0;
            });
            GuardarArchivo(ruta, "new");
            ::_exit(0);
        }
        int estado = 0;
        ::waitpid(hijo, &estado, 0);
        const auto hay = LeerArchivo(ruta);
        EXPECT_TRUE(hay == "old" || hay == "new") << cual << ": " << hay;
        auto nombres = Nombres(directorio);
        nombres.erase("a.TMP");
        EXPECT_EQ(nombres, (std::set<std::string>{"a.qor"})) << cual;
        if (WIFEXITED(estado)) break;
    }
}
#endif

#ifdef QOR_TEST_QORGEN
// The program itself, in a shell that sets its descriptors and limits. Answers the status, then the standard error.
[[maybe_unused]] std::string EnShell(const DirectorioTemporal& directorio, const std::string& comando) {
    const std::string linea = "cd " + directorio.Ruta().string() + " && { " + comando + "; } 2> errors; echo $? > status";
    EXPECT_EQ(std::system(linea.c_str()), 0);
    return LeerArchivo(directorio / "status") + LeerArchivo(directorio / "errors");
}

#ifndef LEFT_OUT_Process_OutputThatCanNotBeWrittenIsAFailure
TEST(Process, OutputThatCanNotBeWrittenIsAFailure) {
    const DirectorioTemporal directorio;
    PrepararParaComandos(directorio);
    directorio.Escribir("catalogue", "BAPIDEFS\r\n0 46C\r\n1 Object\r\n2 BAPI_X\r\n");
    for (const char* comando : {"print a.qor", "dataset session.txt", "widths --query out.txt", "publish out.txt Z --dry-run",
                                "bapi --catalogue catalogue list", "--help", "generate --help"}) {
        EXPECT_EQ(EnShell(directorio, QOR_TEST_QORGEN + std::string(" --settings . ") + comando +
                                          " > /dev/full 2> all; s=$?; "
                                          "tail -n 2 all >&2; (exit $s)"),
                  "1\n0: The output can't be written.\n  No space left on device: standard output\n")
            << comando;
    }
}
#endif

#ifndef LEFT_OUT_Process_ClosedDescriptorsAreNoFilesOfTheCommand
TEST(Process, ClosedDescriptorsAreNoFilesOfTheCommand) {
    const DirectorioTemporal directorio;
    PrepararParaComandos(directorio);
    const std::string reemplazo = QOR_TEST_QORGEN + std::string(" dataset session.txt --field RMMG1-MBRSH --new X --once --yes");
    EnShell(directorio, reemplazo);
    const auto esperado = LeerArchivo(directorio / "session.txt");
    fs::copy_file(fs::path(QOR_TEST_SOURCE_DIR) / "examples/data-sets/session.txt", directorio / "session.txt",
                  fs::copy_options::overwrite_existing);
    EXPECT_EQ(EnShell(directorio, reemplazo + " <&- >&- 2>&-"), "0\n");
    EXPECT_EQ(LeerArchivo(directorio / "session.txt"), esperado);
}
#endif

#ifndef LEFT_OUT_Process_AFileOverTheLimitIsAFailedCall
TEST(Process, AFileOverTheLimitIsAFailedCall) {
    const DirectorioTemporal directorio;
    PrepararParaComandos(directorio);
    EXPECT_THAT(EnShell(directorio, "ulimit -f 1; " QOR_TEST_QORGEN " generate a.qor -o out.txt --yes"),
                testing::MatchesRegex("1\n337: .*\n326: .*\n  File too large: out.txt\n"));
    EXPECT_EQ(LeerArchivo(directorio / "out.txt"), "old");
}
#endif
#endif

}  // namespace
}  // namespace qor::pruebas
