#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <random>
#include <set>

#include "base/failure.h"
#include "base/text.h"
#include "input/check.h"
#include "input/encoding.h"
#include "input/split.h"
#include "tests/support/failing_calls.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/qorgen_run.h"

namespace qor::pruebas {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

enum class Forma { Fija, Tabuladores, PorClaves, Unica, UnicaPorClaves, DosClaves, ClaveCambiante, ClaveAjena };

// Orders of 22 characters: ORDER 6, DATE 8, AMOUNT 8; but for the first two forms items of MATERIAL 5 and QTY 4, behind ORDER where
// that is their key. DosClaves has items of TEXT 3 behind ORDER and DATE as well, ClaveAjena behind a MATERIAL that orders lack; in
// ClaveCambiante a conversion names the key.
DisenoDeEntrada Diseno(Forma forma) {
    Especificacion e;
    e.TablaArchivo[0] = {"ORDER", "6", "", ""};
    e.TablaArchivo[1] = {"DATE", "8", "", ""};
    e.TablaArchivo[2] = {"AMOUNT", "8", "", ""};
    e.TablaTransaccion[0] = {"TRANS", "T"};
    e.TablaTransaccion[1] = {"P", "1"};
    e.TablaTransaccion[2] = {"", "", "ORDER", "ORDER"};
    Opciones opciones;
    opciones.AnchoFijo = forma != Forma::Tabuladores;
    if (forma == Forma::Fija || forma == Forma::Tabuladores) return {e, opciones};
    e.TablaArchivo[3] = {"MATERIAL", "5", "", ""};
    e.TablaArchivo[4] = {"QTY", "4", "", ""};
    e.TablaTransaccion[3] = {"P", "2"};
    const std::string clave = forma == Forma::Unica ? "" : ",ORDER";
    e.TablaTransaccion[4] = {"", "", "M(1)", "MATERIAL", "!1 1!2items.txt!30!4!51!61!7" + clave};
    e.TablaTransaccion[5] = {"", "", "Q(1)", "QTY"};
    if (forma == Forma::DosClaves || forma == Forma::ClaveAjena) {
        e.TablaArchivo[5] = {"TEXT", "3", "", ""};
        e.TablaTransaccion[6] = {"P", "3"};
        e.TablaTransaccion[7] = {"", "", "T(1)", "TEXT", "!1 1!2texts.txt!30!4!51!61!7"};
        e.TablaTransaccion[7].nota += forma == Forma::DosClaves ? ",ORDER,DATE" : ",MATERIAL";
    }
    if (forma == Forma::ClaveCambiante) e.TablaArchivo[2].conversion = "SHIFT #ORDER LEFT.";
    opciones.MultipleFilesOption = forma != Forma::Unica && forma != Forma::UnicaPorClaves;
    opciones.Identificadores = "H,I";
    return {e, opciones};
}

constexpr const char* clases =
    "ORDER required\nORDER pattern [A-Z0-9]+\nDATE date YYYYMMDD\nAMOUNT number ,\nMATERIAL list values/m.txt\nQTY number .\n";

class Oyente : public OyenteDeRevision {
public:
    bool Hallado(const HallazgoDeDatos& h) override {
        hallazgos.push_back(std::to_string(h.archivo) + ":" + std::to_string(h.linea) + ":" + std::to_string(h.columna) + " " +
                            NombreDe(h.clase) + (h.campo.empty() ? "" : " " + h.campo) +
                            (h.valor.empty() ? "" : " '" + h.valor + "'"));
        return ++dichos < maximo;
    }
    std::vector<std::string> hallazgos;
    int dichos = 0;
    int maximo = 1'000'000;
};

struct Prueba {
    DirectorioTemporal directorio;
    ReglasDeValores reglas;

    explicit Prueba(const char* texto = clases) {
        directorio.Escribir("values/m.txt", "PUMP \r\nSEAL\r\n");
        reglas = ReglasDeValores(ClasesDeCampos::Leer(texto), directorio.Ruta());
    }
    std::vector<fs::path> Escribir(const std::vector<std::string>& textos) const {
        std::vector<fs::path> rutas;
        for (const auto& texto : textos) rutas.push_back(directorio.Escribir("in" + std::to_string(rutas.size()), texto));
        return rutas;
    }
    std::vector<std::string> Revisar(Forma forma, const std::vector<std::string>& textos) const {
        Oyente oyente;
        RevisionDeArchivos(Diseno(forma), reglas, Escribir(textos)).Correr(oyente);
        return oyente.hallazgos;
    }
};

using Textos = std::vector<std::string>;

TEST(InputCheck, EachFaultIsFoundAndNoneIsInvented) {
    const std::string o1 = "PO0001202401311.234,50";
    const std::string o2 = "PO0002202402291-       ";
    const std::string i1 = "PO0001PUMP 10.5";
    const std::string i2 = "PO0002SEAL 2";
    const struct {
        const char* que;
        Forma forma;
        Textos archivos;
        Textos esperados;
    } casos[] = {
        {"clean, with blanks behind and without those of the last field",
         Forma::Fija,
         {o1 + "   \n" + o2 + "\nPO0003202402285\n"},
         {}},
        {"an empty file", Forma::Fija, {""}, {}},
        {"CR LF, CR and no end",
         Forma::Fija,
         {o1 + "\r\n" + o2 + "\r" + o1 + "\r" + o1},
         {"0:2:0 mixed-line-ends", "0:4:0 no-final-line-end"}},
        {"CR alone ends the lines", Forma::Fija, {o1 + "\r" + o2 + "\r"}, {}},
        {"too short, too long",
         Forma::Fija,
         {"PO0001\n" + o1 + "  x  \n\n"},
         {"0:1:7 line-too-short DATE", "0:2:23 line-too-long '  x'", "0:3:1 line-too-short ORDER", "0:3:1 missing-value ORDER"}},
        {"values",
         Forma::Fija,
         {"      20230229 1,5    \npo 001  .  .  1,,5   \nPO0001000000000000,0,0\nPO1   2024-1-1       5\n"},
         {"0:1:1 missing-value ORDER", "0:1:7 not-a-date DATE '20230229'", "0:2:1 pattern ORDER 'po 001'",
          "0:2:7 not-a-date DATE '  .  .'", "0:2:15 not-a-number AMOUNT '1,,5'", "0:3:7 not-a-date DATE '00000000'",
          "0:3:15 not-a-number AMOUNT '0000,0,0'", "0:4:7 not-a-date DATE '2024-1-1'"}},
        {"bytes that are no text",
         Forma::Fija,
         {"PO0001202401311,\x81    \n" + std::string("PO\0\0\x8D", 5) + "12024013\xE9,     \n"},
         {"0:1:17 no-character AMOUNT '1,\x81'", "0:1:15 not-a-number AMOUNT '1,\x81'",
          "0:2:3 nul ORDER '" + std::string("PO\0\0\x8D", 5) + "1'",
          "0:2:5 no-character ORDER '" + std::string("PO\0\0\x8D", 5) + "1'",
          "0:2:1 pattern ORDER '" + std::string("PO\0\0\x8D", 5) + "1'", "0:2:7 not-a-date DATE '2024013\xE9'",
          "0:2:15 not-a-number AMOUNT ','"}},
        {"NUL in ASCII",
         Forma::Tabuladores,
         {std::string("PO1\t20240131\t1,\0005\n", 18)},
         {"0:1:3 nul AMOUNT '" + std::string("1,\0005'", 5), "0:1:3 not-a-number AMOUNT '" + std::string("1,\0005'", 5)}},
        {"UTF-8 is told once, and read as characters",
         Forma::Fija,
         {o1 + "\nP\xC3\x84"
               "0001202401311       \nPO\xC4\x80"
               "001202401312       \n"},
         {"0:2:0 utf-8",
          "0:2:1 pattern ORDER 'P\xC4"
          "0001'",
          "0:3:3 no-character ORDER 'PO?001'", "0:3:1 pattern ORDER 'PO?001'"}},
        {"valid up to a later line, so not UTF-8",
         Forma::Fija,
         {"P\xC3\x84"
          "001202401311       \nP\xC4"
          "0001202401311       \n"},
         {"0:1:2 utf-8 ORDER 'P\xC3\x84"
          "001'",
          "0:1:1 pattern ORDER 'P\xC3\x84"
          "001'",
          "0:2:1 pattern ORDER 'P\xC4"
          "0001'"}},
        {"byte order marks", Forma::Fija, {"\xEF\xBB\xBF" + o1 + "\n" + o2 + "\n"}, {"0:1:0 byte-order-mark"}},
        {"UTF-16", Forma::Fija, {std::string("\xFF\xFEP\0O\0\n\0", 8)}, {"0:1:0 byte-order-mark"}},
        {"tabs",
         Forma::Tabuladores,
         {"PO1\t20240131\t1,5\nPO1\t20240131\nPO1\t20240131\t1,5\t \t\nPO1\t20240131\t1,5\t\tx\nPO00001\t20240131 "
          "\t1,5\n\t2024013\t\n"},
         {"0:2:3 tab-count AMOUNT", "0:4:4 tab-count", "0:5:1 value-too-long ORDER 'PO00001'", "0:6:1 missing-value ORDER",
          "0:6:2 not-a-date DATE '2024013'"}},
        {"several files", Forma::PorClaves, {o1 + "\n" + o2 + "\n", i1 + "\n" + i2 + "\n" + i1 + "\n"}, {}},
        {"keys",
         Forma::PorClaves,
         {o1 + "\n" + o2 + "\n" + o1 + "\nPO9999202401311,0     \n", "PO0003PUMP 1\n" + i1 + "\nPO0002VALVEx\nPO1   \n"},
         {"0:3:1 duplicate-key ORDER 'PO0001'", "1:1:1 item-without-order ORDER 'PO0003'", "1:3:7 not-in-list MATERIAL 'VALVE'",
          "1:3:12 not-a-number QTY 'x'", "1:4:7 line-too-short MATERIAL", "1:4:1 item-without-order ORDER 'PO1'",
          "0:4:0 order-without-items"}},
        {"keys of two kinds",
         Forma::DosClaves,
         {o1 + "\n" + o2 + "\n", i1 + "\n", "PO000220240229x\nPO000120240229y\n"},
         {"2:2:1 item-without-order ORDER 'PO0001'"}},
        {"keys that the report may change",
         Forma::ClaveCambiante,
         {o1 + "\n" + o1 + "\n", i2 + "\n"},
         {"1:0:0 keys-not-compared ORDER"}},
        {"a key that orders lack", Forma::ClaveAjena, {o1 + "\n", i1 + "\n", "PUMP x\n"}, {"2:0:0 keys-not-compared MATERIAL"}},
        {"without orders nothing is said of items", Forma::PorClaves, {"\xFE\xFF", i1 + "\n"}, {"0:1:0 byte-order-mark"}},
        {"the first file alone", Forma::PorClaves, {o1 + "\n" + o1 + "\n"}, {"0:2:1 duplicate-key ORDER 'PO0001'"}},
        {"one file by position",
         Forma::Unica,
         {"IPUMP 1\nH" + o1 + "\nIPUMP 1\nISEAL 2\nH" + o2 + "\n\nXPUMP\nHPO0001202401311,0     \nIx\n"},
         {"0:1:0 item-without-order", "0:7:1 unknown-record 'X'", "0:5:0 order-without-items", "0:9:7 line-too-short QTY",
          "0:9:2 not-in-list MATERIAL 'x'"}},
        {"one file by keys, in any order",
         Forma::UnicaPorClaves,
         {"I" + i2 + "\nH" + o1 + "\nIPO0003PUMP 1\nI" + i1 + "\nH" + o2 + "\n"},
         {"0:3:2 item-without-order ORDER 'PO0003'"}},
    };
    const Prueba prueba;
    for (const auto& caso : casos) EXPECT_EQ(prueba.Revisar(caso.forma, caso.archivos), caso.esperados) << caso.que;
    // Of a very long line the beginning is looked at.
    const std::string larga(5'000'000, ' ');
    EXPECT_EQ(prueba.Revisar(Forma::Fija, {o1 + larga + "\n" + o1 + larga + "x\r\n" + o1 + "\n"}),
              (Textos{"0:2:0 mixed-line-ends", "0:2:23 line-too-long"}));
    // The listener ends it.
    Oyente impaciente;
    impaciente.maximo = 2;
    EXPECT_FALSE(RevisionDeArchivos(Diseno(Forma::Fija), prueba.reglas, prueba.Escribir({"\n\n\n"})).Correr(impaciente));
    EXPECT_EQ(impaciente.dichos, 2);
}

TEST(InputCheck, LinesAreThoseOfTheFileWhereverABlockEnds) {
    const DirectorioTemporal directorio;
    std::mt19937 azar(5);
    const std::size_t bloque = std::size_t{1} << 18;
    for (std::size_t desvio = 0; desvio < 5; ++desvio) {
        // Line ends of all kinds, next to the border of the first block too.
        std::string texto(bloque - 2 + desvio, 'x');
        texto += "\r\n\r\r\n\ny";
        while (texto.size() < 3 * bloque) {
            texto.append(azar() % 5 == 0 ? 70'000 : azar() % 40, "ab "[azar() % 3]);
            texto += std::string_view("\r\n\n\r").substr(azar() % 3, 1 + azar() % 2);
        }
        const auto ruta = directorio.Escribir("in", texto);
        const ArchivoAbierto archivo(ruta);
        for (const auto maximo : {LectorDeEntrada::lineaMaxima, std::size_t{30}}) {
            LectorDeEntrada lector(archivo, 0, maximo);
            LineaLeida linea;
            std::uint64_t lugar = 0;
            for (const auto esperada : PartirEnLineas(texto)) {
                ASSERT_TRUE(lector.Linea(linea));
                ASSERT_EQ(linea.texto, esperada.substr(0, maximo));
                ASSERT_EQ(linea.lugar, lugar);
                ASSERT_EQ(linea.sobra, esperada.size() > maximo && !EstaEnBlanco(esperada.substr(maximo)));
                const auto entera = std::string_view(texto).substr(linea.lugar, linea.largo);
                ASSERT_TRUE(entera.starts_with(esperada) && entera.size() <= esperada.size() + 2);
                ASSERT_TRUE(esperada.size() > maximo || linea.bytes == entera);
                lugar += linea.largo;
            }
            EXPECT_FALSE(lector.Linea(linea));
            EXPECT_EQ(lugar, texto.size());
        }
    }
}

TEST(InputCheck, EncodingGoesByRule) {
    const DirectorioTemporal directorio;
    const std::string ascii(300'000, 'a');
    const struct {
        std::string texto;
        Codificacion esperada;
    } casos[] = {{ascii, Codificacion::Windows1252},
                 {"\xEF\xBB\xBF" + ascii, Codificacion::Utf8},
                 {"\xFE\xFF", Codificacion::Utf16},
                 {ascii.substr(0, 262141) + "\xF0\x9F\x98\x80", Codificacion::Utf8},  // over the end of a block
                 {ascii.substr(0, 262143) + "\xE2\x82\xAC" + ascii, Codificacion::Utf8},
                 {ascii + "\xC3\xA9\xE9", Codificacion::Windows1252},
                 {"\xC3\xA9" + ascii + "\xC3", Codificacion::Windows1252},  // ends within a character
                 {"\xC0\xAF", Codificacion::Windows1252},                   // longer than needed
                 {"\xED\xA0\x80", Codificacion::Windows1252},               // half of a pair
                 {"\xF4\x90\x80\x80", Codificacion::Windows1252}};
    for (const auto& caso : casos) {
        const auto ruta = directorio.Escribir("in", caso.texto);
        EXPECT_EQ(BuscarCodificacion(ArchivoAbierto(ruta)), caso.esperada) << caso.texto.substr(0, 10);
    }
}

TEST(InputCheck, NumbersDatesAndPatterns) {
    const struct {
        const char* sentencia;
        Textos buenos;
        Textos malos;
    } casos[] = {
        {"number ,",
         {"0", "-1", "1-", "+12", "1.234.567,89", "1234567,89", ",5", "5,"},
         {"1,2,3", "1.23", "1234.567", ".123", "1.", "-", "--1", "-1-", "1 000", "1e3", "x", ","}},
        {"number .", {"1,234.5", ".5"}, {"1.234,5", "1.2.3"}},
        {"date DD.MM.YYYY",
         {"31.01.2024", "29.02.2000"},
         {"29.02.1900", "31.04.2024", "1.1.2024", "00.01.2024", "01.01.0000", "01/01/2024"}},
        {"date MMYY", {"1224", "0100"}, {"1324", "122", "12.4"}},
        {"date YYMMDD", {"000229", "240229"}, {"230229"}},
        {"pattern a|b(c|\xC3\xA4){2,3}x?",
         {"a", "bcc",
          "b\xE4"
          "c\xE4",
          "bccx"},
         {"b", "bc", "bcccc", "ab", "A"}},
        {"pattern ^[^\\s\\x41-]+\\.?\\w*$", {"x.y", "]9"}, {"A", "-", "x y"}},
        {"pattern b", {"b"}, {" b"}},
        {"pattern (a*)*(a?){30}.", {"b"}, {std::string(5000, 'a') + "bb"}},
    };
    for (const auto& caso : casos) {
        const ReglaDeValor regla(*ClasesDeCampos::Leer(std::string("F ") + caso.sentencia).Buscar("f"));
        for (const auto& valor : caso.buenos) EXPECT_FALSE(regla.Falta(valor + "  ")) << caso.sentencia << ": " << valor;
        for (const auto& valor : caso.malos) EXPECT_TRUE(regla.Falta(valor)) << caso.sentencia << ": " << valor;
    }
}

TEST(InputCheck, ListsAreReadInTheirEncoding) {
    const DirectorioTemporal directorio;
    const auto deLista = ClasesDeCampos::Leer("# kinds\nF list l.txt");
    const struct {
        std::string lista;
        const char* fallo;  // empty: the list has the value A umlaut
    } casos[] = {{"x\n\xC4 \n", ""},
                 {"\xC3\x84\r\nx\r\n", ""},
                 {"\xEF\xBB\xBF\xC3\x84\n", ""},
                 {"x\n\xC3\x84\n\xC4\x80\n",
                  "line 2: F: the list, a text file whose name is relative to the document, can't be "
                  "read: line 3 of the list is no UTF-8"},
                 {std::string("\xFF\xFE\xC4\0", 4), "UTF-16"}};
    for (const auto& caso : casos) {
        directorio.Escribir("l.txt", caso.lista);
        const auto leer = [&] { return ReglasDeValores(deLista, directorio.Ruta()); };
        if (*caso.fallo != 0) {
            EXPECT_THAT(leer, testing::ThrowsMessage<FalloDeArchivo>(HasSubstr(caso.fallo)));
            continue;
        }
        const auto reglas = leer();
        EXPECT_FALSE(reglas.Buscar("F")->Falta("\xC4")) << caso.lista;
        EXPECT_TRUE(reglas.Buscar("F")->Falta("\xC3\x84")) << caso.lista;
    }
}

TEST(InputCheck, KindsComeBackAsTheyWereWritten) {
    const std::string texto =
        "# Kinds of the materials.\n\n# One of \xC3\xA4\n# two lines\nMATNR required\nMATNR pattern [A-Z]{1,18}\n"
        "BRGEW number ,\n# gone\nGONE required\n\"TWO WORDS\" list values/m n.txt\nBUDAT date DD.MM.YYYY\n# end\n";
    auto leidas = ClasesDeCampos::Leer("\xEF\xBB\xBF" + ReemplazarTodo(texto, "MATNR required\n", "matnr\t required  \r\n\r\n"));
    const Textos orden = {"MATNR", "BRGEW", "GONE", "Two Words", "BUDAT"};
    EXPECT_EQ(leidas.Texto(orden), texto);
    leidas.Poner("gone", {});
    EXPECT_EQ(leidas.Buscar("GONE"), nullptr);
    EXPECT_EQ(leidas.Texto(orden),
              ReemplazarTodo(ReemplazarTodo(texto, "# gone\nGONE required\n", ""), "materials.\n\n", "materials.\n\n# gone\n"));
    const std::pair<const char*, const char*> malos[] = {
        {"A required\nA required", "line 2"},
        {"A number", "line 1"},
        {"A number ;", "\",\""},
        {"A date DD.MM.D", "DD.MM.D"},
        {"A pattern (", "\")\""},
        {"A pattern (?=x)", "not supported"},
        {"A pattern (x{900}){900}", "large"},
        {"\n\nA color red", "line 3"},
        {"A number .\nA date MMYY", "line 2"},
        {"\nA", "line 2: A: nothing stands behind the name; allowed are \"required\""},
        {"A foo", "line 1: A: \"foo\" says nothing of a field; allowed are \"required\""},
        {"A list", "line 1: A: behind \"list\" stands the name of a file"},
        {"A required x", "line 1"},
        {"\"A required", "second quote"},
        {"A list \xC4\x80", "line 1"}};
    for (const auto& [malo, motivo] : malos) {
        try {
            ClasesDeCampos::Leer(malo);
            ADD_FAILURE() << malo;
        } catch (const FalloDeEjecucion& fallo) {
            EXPECT_THAT(fallo.what(), HasSubstr(motivo)) << malo;
        }
    }
}

std::string Leer(const fs::path& ruta) { return LeerArchivo(ruta); }

// Orders and items in any state; small numbers, so that keys meet.
std::string Registros(std::mt19937& azar, Forma forma, bool ordenes, bool partidas) {
    const auto uno = [&](std::initializer_list<const char*> de) { return std::string(de.begin()[azar() % de.size()]); };
    std::string texto;
    for (auto quedan = azar() % 12; quedan > 0; --quedan) {
        const auto numero = "PO000" + std::to_string(azar() % 6);
        std::string linea;
        if (ordenes && (!partidas || azar() % 3 == 0)) {
            linea = partidas ? "H" : "";
            linea +=
                (azar() % 30 == 0 ? "po000x" : numero) + uno({"20240131", "20240131", "20240131", "        ", "20240231"}) + "1,5";
        } else {
            linea = uno({"I", "I", "I", "I", "I", "I", "I", "X"}).substr(0, ordenes ? 1 : 0);
            linea += (forma == Forma::Unica ? "" : numero) + uno({"PUMP ", "SEAL ", "PUMP ", "SEAL ", "PUMP ", "VALVE"}) + "1";
        }
        texto += azar() % 20 == 0 ? "\n" : linea + std::string(azar() % 3, ' ') + uno({"\n", "\r\n"});
    }
    return texto;
}

std::multiset<std::string> ConjuntoDeLineas(const std::string& texto) {
    std::multiset<std::string> lineas;
    std::size_t desde = 0;
    for (std::size_t fin = 0; (fin = texto.find('\n', desde)) != std::string::npos; desde = fin + 1) {
        lineas.insert(texto.substr(desde, fin + 1 - desde));
    }
    return lineas;
}

// Good records have no errors of their own and none that come of the others' absence; and each line is in one place.
TEST(InputSplit, GoodRecordsAreGoodAloneAndNothingIsLost) {
    const SinEsperarAlDisco sinEsperar;
    const Prueba prueba;
    std::mt19937 azar(11);
    int conAmbas = 0;
    for (int vez = 0; vez < 250; ++vez) {
        const auto forma =
            std::array{Forma::Fija, Forma::PorClaves, Forma::Unica, Forma::UnicaPorClaves, Forma::DosClaves}[vez % 5];
        const bool varios = forma == Forma::PorClaves || forma == Forma::DosClaves;
        Textos textos;
        if (forma == Forma::Fija || varios) textos.push_back(Registros(azar, forma, true, false));
        if (varios) textos.push_back(Registros(azar, forma, false, true));
        if (forma == Forma::DosClaves)
            textos.push_back(ReemplazarTodo(Registros(azar, Forma::PorClaves, false, true), "PUMP ", "20240131"));
        if (textos.empty()) textos.push_back(Registros(azar, forma, true, true));
        const auto archivos = prueba.Escribir(textos);
        std::vector<PartesDeArchivo> partes;
        for (std::size_t i = 0; i < archivos.size(); ++i) {
            const auto n = std::to_string(i);
            partes.push_back(
                {archivos[i], prueba.directorio / ("g" + n), prueba.directorio / ("b" + n), prueba.directorio / ("r" + n)});
        }
        const auto cuentas = PartirArchivos(Diseno(forma), prueba.reglas, partes);
        Textos buenos;
        bool hayMalos = false;
        bool hayMotivos = false;
        for (std::size_t i = 0; i < partes.size(); ++i) {
            buenos.push_back(Leer(partes[i].buenos));
            const auto malos = Leer(partes[i].malos);
            auto todas = ConjuntoDeLineas(buenos.back());
            todas.merge(ConjuntoDeLineas(malos));
            ASSERT_EQ(todas, ConjuntoDeLineas(textos[i])) << textos[i];
            ASSERT_EQ(cuentas[i].buenas + cuentas[i].malas, todas.size());
            hayMalos = hayMalos || !malos.empty();
            hayMotivos = hayMotivos || !Leer(partes[i].motivos).empty();
        }
        ASSERT_EQ(hayMalos, hayMotivos);
        conAmbas += hayMalos && !buenos.front().empty() ? 1 : 0;
        for (const auto& hallazgo : prueba.Revisar(forma, buenos)) {
            ASSERT_TRUE(Contiene(hallazgo, "line-too-short") || Contiene(hallazgo, "mixed-line") ||
                        Contiene(hallazgo, "without-items"))
                << hallazgo << "\n"
                << testing::PrintToString(textos) << testing::PrintToString(buenos);
        }
    }
    EXPECT_GT(conAmbas, 40);
}

#ifndef LEFT_OUT_InputSplit_ReasonsAndLongLines
TEST(InputSplit, ReasonsAndLongLines) {
    const Prueba prueba;
    const std::string larga = "HPO0002202401311,5     " + std::string(3'000'000, ' ');
    const std::string buena = "HPO0001202401311,5     \r\nIPUMP 1";
    const std::string mala = larga + "\nIV\tLVE1\nIPUMP \xE4\n?";
    const auto entrada = prueba.directorio.Escribir("in", buena + "\n" + mala + "\nHPO0003202401311,5");
    const auto en = [&](const char* nombre) { return prueba.directorio / nombre; };
    PartirArchivos(Diseno(Forma::Unica), prueba.reglas, {{entrada, en("g"), en("b"), en("r")}});
    EXPECT_EQ(Leer(en("g")), buena + "\nHPO0003202401311,5");
    EXPECT_EQ(Leer(en("b")), mala + "\n");
    EXPECT_EQ(Leer(en("r")),
              "4\tMATERIAL\t\"V LVE\": not in the list values/m.txt\r\n"
              "5\tQTY\t\"\xE4\": no number with \".\" as its decimal sign\r\n"
              "6\t\t\"?\": begins with no id of a record: H, I\r\n");
    // In UTF-8 what the report would read wrong is bad, each line for itself.
    prueba.directorio.Escribir("in", "\xEF\xBB\xBFPO0001\nPO0002\n\xC3\x84\n");
    PartirArchivos(Diseno(Forma::Fija), {}, {{entrada, en("g"), en("b"), en("r")}});
    EXPECT_EQ(Leer(en("g")), "PO0002\n");
    EXPECT_EQ(Leer(en("r")),
              "1\t\ta byte order mark of UTF-8 begins the file, which the report takes for data\r\n"
              "3\t\tthe line is in UTF-8, and the report reads its characters outside ASCII as other ones\r\n");
    // Items that can't be told to orders would be torn from them.
    const auto orden = prueba.directorio.Escribir("orders", "PO0001202402301,5     \n");
    const auto partida = prueba.directorio.Escribir("items", "PO0001PUMP 1\n");
    const auto partir = [&](Forma forma) {
        PartirArchivos(Diseno(forma), prueba.reglas,
                       {{orden, en("og"), en("ob"), en("or")}, {partida, en("ig"), en("ib"), en("ir")}});
    };
    EXPECT_THAT([&] { partir(Forma::ClaveCambiante); },
                testing::ThrowsMessage<FalloDeEjecucion>(HasSubstr("ORDER: the records of step-loop 1")));
    EXPECT_FALSE(fs::exists(en("og")));
    partir(Forma::PorClaves);
    EXPECT_EQ(Leer(en("ib")), "PO0001PUMP 1\n");
    // Nothing is written over an input, or twice.
    fs::create_symlink(entrada, en("link"));
    for (const auto* salida : {"in", "link", "./in", "b"}) {
        EXPECT_THROW(PartirArchivos(Diseno(Forma::Fija), prueba.reglas, {{entrada, en(salida), en("b"), en("r")}}),
                     FalloDeEjecucion);
    }
}
#endif

// What belongs to no order says the report itself, which is run.
TEST(InputCheck, ItemsBelongTogetherAsInTheReport) {
    QorgenDePrueba qorgen;
    const fs::path ejemplos = fs::path(QOR_TEST_SOURCE_DIR) / "examples";
    const auto porClaves = Leer(ejemplos / "va01/orders.qor");
    const auto unico = ReemplazarTodo(porClaves, "\"M\",\"\",0,0", "\"O\",\"H,I\",0,0");
    ASSERT_NE(unico, porClaves);
    const std::pair<std::string, bool> documentos[] = {
        {porClaves, false}, {unico, true}, {Leer(ejemplos / "va01-one-file/orders.qor"), true}};
    std::mt19937 azar(3);
    int conPerdidas = 0;
    for (int vez = 0; vez < 24; ++vez) {
        const auto& [documento, unaSola] = documentos[vez % 3];
        const bool porPosicion = vez % 3 == 2;
        qorgen.directorio.Escribir("orders.qor", documento);
        std::string ordenes;
        std::string partidas;
        for (auto quedan = 1 + azar() % 15; quedan > 0; --quedan) {
            char clave[32];
            std::snprintf(clave, sizeof clave, "%-20s", (std::string(azar() % 2, ' ') + "PO" + std::to_string(azar() % 8)).c_str());
            const bool esOrden = azar() % 3 == 0;
            auto& en = esOrden || unaSola ? ordenes : partidas;
            if (unaSola) en += azar() % 8 == 0 ? '?' : esOrden ? 'H' : 'I';
            en += esOrden ? clave + std::string("TA  1000100000") : (porPosicion ? "" : clave) + std::string("PUMP");
            en += azar() % 2 == 0 ? "\n" : "  \r\n";
        }
        qorgen.directorio.Escribir("orders.txt", ordenes);
        qorgen.directorio.Escribir("items.txt", partidas);
        std::vector<std::string> correr = {"run", "D/orders.qor", "--file", "FILE=D/orders.txt"};
        std::vector<std::string> revisar = {"data", "check", "D/orders.qor", "D/orders.txt", "--format", "json"};
        if (!unaSola) {
            correr.insert(correr.end(), {"--file", "SLOOP_1=D/items.txt"});
            revisar.insert(revisar.begin() + 4, "D/items.txt");
        }
        qorgen.Correr(correr);
        const std::string antes = "ITABSL_1: ";
        const auto lugar = qorgen.errores.find(antes);
        const bool perdidas = lugar != std::string::npos;
        const auto esperadas = perdidas ? std::stoul(qorgen.errores.substr(lugar + antes.size())) : 0;
        qorgen.Correr(revisar);
        std::size_t halladas = 0;
        const auto todo = nlohmann::json::parse(qorgen.salida);
        for (const auto& archivo : todo.at("files")) {
            for (const auto& hallazgo : archivo.at("findings")) halladas += hallazgo.at("code") == "item-without-order" ? 1 : 0;
        }
        EXPECT_EQ(halladas, esperadas) << vez << "\n" << ordenes << "\n" << partidas << qorgen.errores;
        conPerdidas += perdidas ? 1 : 0;
    }
    EXPECT_GT(conPerdidas, 8);
}

TEST(InputCheck, CommandLine) {
    QorgenDePrueba qorgen;
    const fs::path ejemplo = fs::path(QOR_TEST_SOURCE_DIR) / "examples/mm01";
    qorgen.directorio.Escribir("materials.qor", Leer(ejemplo / "materials.qor"));
    qorgen.directorio.Escribir("materials.txt", Leer(ejemplo / "materials.txt"));
    qorgen.directorio.Escribir("values/MATKL.txt", "PUMPS\r\nSEALS\r\n");
    EXPECT_EQ(qorgen.Correr({"data", "check", "D/materials.qor"}), 0);
    EXPECT_THAT(qorgen.errores, HasSubstr("1 file, 4 records, 0 errors, 1 hint\n"));
    qorgen.directorio.Escribir("materials.checks",
                               "MATKL list values/MATKL.txt\nMAKTX pattern [\xC3\xBC\xE2\x82\xAC -z]+\nX required\n");
    const std::vector<std::string> revisar = {"data", "check", "D/materials.qor", "D/materials.txt"};
    const auto archivo = qorgen.directorio.Ruta().string() + "/materials.txt";
    const auto corta = archivo +
                       ":3:76: hint: BRGEW: the line ends before the field begins, which is read as blank like all behind it "
                       "[line-too-short]\n";
    const auto fuera = archivo + ":4:67: error: MATKL \"FLUIDS\": not in the list values/MATKL.txt [not-in-list]\n";
    EXPECT_EQ(qorgen.Correr(revisar), 1);
    EXPECT_EQ(qorgen.salida, corta + fuera);
    EXPECT_EQ(qorgen.errores, "0: materials.checks, line 3: the document has no field X.\n1 file, 4 records, 1 error, 1 hint\n");

    auto comoJSON = revisar;
    comoJSON.insert(comoJSON.end(), {"--format", "json", "--max-findings", "0"});
    EXPECT_EQ(qorgen.Correr(comoJSON), 1);
    EXPECT_EQ(nlohmann::json::parse(qorgen.salida), (nlohmann::json{{"version", 1},
                                                                    {"errors", 1},
                                                                    {"hints", 1},
                                                                    {"files",
                                                                     {{{"name", "FILE"},
                                                                       {"path", archivo},
                                                                       {"complete", true},
                                                                       {"records", 4},
                                                                       {"findings", nlohmann::json::array()},
                                                                       {"errors", 1},
                                                                       {"hints", 1}}}}}));
    comoJSON.back() = "1";
    qorgen.Correr(comoJSON);
    EXPECT_EQ(
        nlohmann::json::parse(qorgen.salida)["files"][0]["findings"][1],
        nlohmann::json::parse(R"({"code": "not-in-list", "severity": "error", "line": 4, "column": 67, "field": "MATKL", "row": 5,
                  "value": "FLUIDS", "sentence": "not in the list values/MATKL.txt", "otherLine": null})"));

    const auto partir = [&](const char* bueno) {
        return qorgen.Correr(
            {"data", "split", "D/materials.qor", "D/materials.txt", "--good", bueno, "--bad", "D/b", "--reasons", "D/r"});
    };
    EXPECT_EQ(partir("D/g"), 0);
    EXPECT_THAT(qorgen.errores, HasSubstr(archivo + ": 3 good, 1 bad\n"));
    // Nothing takes the place of what is read, or of another output, whether that is there or not.
    fs::create_hard_link(qorgen.directorio / "b", qorgen.directorio / "hard");
    qorgen.directorio.Escribir("materials.checks", "MATKL list values/none.txt\n");
    qorgen.directorio.Escribir("values/none.txt", "x");
    for (const auto* salida : {"D/materials.txt", "D/materials.qor", "D/values/../materials.checks", "D/values/none.txt",
                               "D/Tessaline.ini", "D/b", "D/hard"}) {
        EXPECT_EQ(partir(salida), 2) << salida;
    }
#ifndef _WIN32  // links need a privilege there
    fs::create_symlink("none", qorgen.directorio / "link");
    EXPECT_EQ(qorgen.Correr({"data", "split", "D/materials.qor", "D/materials.txt", "--good", "D/link", "--bad", "D/values/../none",
                             "--reasons", "D/r"}),
              2);
#endif
    fs::remove(qorgen.directorio / "materials.checks");
    EXPECT_EQ(partir("D/materials.checks"), 2);
#ifndef _WIN32  // names are no bytes there
    // What would do something on a terminal is written out.
    const auto rara = qorgen.directorio.Escribir("\x1B[1m\xC3\xA4\xC2\x9B\xE9", "\x90\n");
    qorgen.Correr({"data", "check", "D/materials.qor", rara.string()});
    EXPECT_THAT(qorgen.salida, HasSubstr("/\\x1B[1m\xC3\xA4\\xC2\\x9B\\xE9:1:1: error: MATNR \"\\x90\": the byte 90"));
#endif
    EXPECT_EQ(qorgen.Correr({"data", "check", "D/materials.qor", "D/g", "--max-findings", "-1"}), 2);
    EXPECT_EQ(qorgen.Correr({"data", "check", "D/materials.qor", "D/g", "D/g"}), 2);
    fs::remove(archivo);
    EXPECT_EQ(qorgen.Correr({"data", "check", "D/materials.qor"}), 2);
    EXPECT_EQ(qorgen.Correr(revisar), 1);
}

}  // namespace
}  // namespace qor::pruebas
