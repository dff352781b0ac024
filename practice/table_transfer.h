#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "practice/database.h"

// An error table as a download, which the data-set editor opens; windows-1252, CR LF at line ends. Columns count from 1:
//    1 to 3 client    4 to 13 program    14 to 23 run    24 to 33 operation    34 to 43 sequence    44 processed    45 to 56 user
//   57 to 59 kind of line    60 to 62 length    63 on the line, without the blanks behind it
// A length of more than 999 stands there as "***". Reading takes it from the line then, and wherever the line is longer.
namespace qor {

struct FilasBajadas {
    std::int64_t definiciones = 0;  // lines that define the fields
    std::int64_t filas = 0;         // all others
};

// All rows of the client by their key, those that define the fields in front of the others: the first line tells what kind of file
// it is. Throws FalloDeEjecucion where there is no such table, or it is no error table.
FilasBajadas BajarTabla(BaseDePractica& base, std::string_view nombre, const std::filesystem::path& archivo);

struct FilasSubidas {
    std::int64_t cambiadas = 0;
    std::int64_t nuevas = 0;
};

// Takes a corrected download back, as one unit of work: each line is the row of its key, which is changed or added; rows that the
// file does not have stay. Throws FalloDeArchivo, with the line, where the file does not fit the table, and nothing is changed
// then.
FilasSubidas SubirTabla(BaseDePractica& base, std::string_view nombre, const std::filesystem::path& archivo);

}  // namespace qor
