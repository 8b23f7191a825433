# Makes OUTPUT, a C++ file that holds the text of INPUT as karvel::NAME (a std::string_view),
# so that the program carries the sign table with it whatever happens to the installed tree.
function(karvel_embed_text INPUT NAME OUTPUT)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${INPUT})
    file(READ ${INPUT} TEXT)
    # One literal a line keeps every literal far below the length that compilers must accept.
    string(REPLACE "\\" "\\\\" TEXT "${TEXT}")
    string(REPLACE "\"" "\\\"" TEXT "${TEXT}")
    string(REPLACE "\n" "\\n\"\n    \"" TEXT "${TEXT}")
    set(BODY "#include <string_view>\n\nnamespace karvel {\nextern const std::string_view ${NAME};\nconst std::string_view ${NAME} =\n    \"${TEXT}\";\n}  // namespace karvel\n")
    file(CONFIGURE OUTPUT ${OUTPUT} CONTENT "${BODY}" @ONLY)
endfunction()
