# The folders of src/ are floors: a folder may use only the folders below it. bottegon_floor makes the
# library of one folder, and of its ui/ if it has one. Only ui/ libraries link QtWidgets, so a rule that
# reaches for a widget does not compile.
function(bottegon_floor name)
    cmake_parse_arguments(ARG "" "" "BELOW;LINK" ${ARGN})
    set(below ${ARG_BELOW})
    list(TRANSFORM below PREPEND bottegon_)

    file(GLOB rules CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp
         ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h)
    if(rules)
        add_library(bottegon_${name} STATIC ${rules})
        target_include_directories(bottegon_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(bottegon_${name} PUBLIC ${below} Qt6::Core ${ARG_LINK})
        target_precompile_headers(bottegon_${name} PRIVATE <QString> <QVariant> <QDate> <functional> <vector>)
    endif()

    file(GLOB forms CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/ui/*.cpp
         ${CMAKE_CURRENT_SOURCE_DIR}/${name}/ui/*.h)
    if(forms)
        add_library(bottegon_${name}_ui STATIC ${forms})
        target_include_directories(bottegon_${name}_ui PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
        foreach(folder ${ARG_BELOW})
            if(TARGET bottegon_${folder}_ui)
                target_link_libraries(bottegon_${name}_ui PUBLIC bottegon_${folder}_ui)
            endif()
        endforeach()
        if(rules)
            target_link_libraries(bottegon_${name}_ui PUBLIC bottegon_${name})
        endif()
        target_link_libraries(bottegon_${name}_ui PUBLIC ${below} Qt6::Widgets)
        target_precompile_headers(bottegon_${name}_ui PRIVATE <QtWidgets>)
    endif()
endfunction()
