# The public geodesy libraries that tests and benches compare with. The programs themselves link neither.
find_package(PROJ REQUIRED)
find_library(TARVEK_GEOGRAPHICLIB GeographicLib REQUIRED)
add_library(tarvek_oracles INTERFACE)
target_link_libraries(tarvek_oracles INTERFACE PROJ::proj ${TARVEK_GEOGRAPHICLIB})
