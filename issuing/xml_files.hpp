// Where the XML files of a working folder are: Facturas, named by series and folio number, and below it
// Anteriores, with the files whose name another document took.
#pragma once

#include "platform/xml_document.hpp"

namespace tolvex {

// Writes the file into Facturas under the working folder, which is made if it is missing (one level only),
// and gives its path. A file that has the name already is moved first to Facturas\Anteriores, as
// name_of_earlier says. It is on disk before it takes its name. Throws Error.
Text write_xml_file(const XmlDocument& xml, const Text& working_folder, const Text& series,
                    const Text& number);

// "A15_2011-03-15T14-05-09.xml": the name with which a document's file stays in Anteriores; from the second
// of the same name and moment on, "A15_2011-03-15T14-05-09-2.xml".
Text name_of_earlier(const Text& stem, const Text& moment, int times);

// Removes what interrupted issues left of files that were being written.
void remove_unfinished_xml_files(const Text& working_folder);

} // namespace tolvex
