# Makes the header FilmPageParts.h of the page's files, so that the program has them in itself. What is between the
# parts, the program writes. The page allows only its own script and style, which it knows by their hashes.
set(page_folder ${CMAKE_CURRENT_LIST_DIR})
foreach(file page.html page.css player.js FilmPageParts.h.in)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${page_folder}/${file})
endforeach()

# The SHA-256 of a text in base64, as a security policy has it: three hexadecimal digits become two characters.
function(qrt_base64_hash text result)
    set(characters ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/)
    string(SHA256 digits "${text}")
    string(APPEND digits 00) # 64 digits are 43 characters and some bits; "=" fills the last group of four
    set(hash "")
    foreach(place RANGE 0 63 3)
        string(SUBSTRING ${digits} ${place} 3 three)
        math(EXPR high "0x${three} >> 6")
        math(EXPR low "0x${three} & 63")
        string(SUBSTRING ${characters} ${high} 1 high)
        string(SUBSTRING ${characters} ${low} 1 low)
        string(APPEND hash ${high}${low})
    endforeach()
    string(SUBSTRING ${hash} 0 43 hash)
    set(${result} "${hash}=" PARENT_SCOPE)
endfunction()

file(READ ${page_folder}/page.html page)
file(READ ${page_folder}/page.css style)
file(READ ${page_folder}/player.js script)
qrt_base64_hash("${style}" style_hash)
qrt_base64_hash("${script}" script_hash)
foreach(part style_hash script_hash style script) # the last two hold no names in "@"
    string(REPLACE "@${part}@" "${${part}}" page "${page}")
endforeach()

string(FIND "${page}" "@film@" film_place)
string(FIND "${page}" "@pictures@" pictures_place)
string(SUBSTRING "${page}" 0 ${film_place} before_film)
math(EXPR film_end "${film_place} + 6")
math(EXPR between_size "${pictures_place} - ${film_end}")
string(SUBSTRING "${page}" ${film_end} ${between_size} between)
math(EXPR pictures_end "${pictures_place} + 10")
string(SUBSTRING "${page}" ${pictures_end} -1 after_pictures)
configure_file(${page_folder}/FilmPageParts.h.in ${PROJECT_BINARY_DIR}/generated/tools/preview/FilmPageParts.h @ONLY)
