# compile_banks(TARGET)
#
# Adds the banks of all exams to TARGET as C++ tables. A broken rule of content stops the build with
# the faults of that exam. The sources are globbed so that the bank compiler itself tells which one
# is missing.
function(compile_banks target)
  set(labs data/labs)
  file(GLOB lab_files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${labs}/*.toml)
  foreach(exam IN ITEMS egret falco heron lark merle robin wren)
    set(banks data/banks/${exam})
    set(content data/exams/${exam})
    set(book data/books/${exam})
    # The pages of the references come from the book as it is set, when the build sets books.
    set(pages)
    set(set_book)
    if(PRACTICE_EXAM_DESKTOP AND EXISTS ${PROJECT_SOURCE_DIR}/${book}/book.toml)
      set(pages ${PROJECT_BINARY_DIR}/books/${exam}/pages.toml)
      set(set_book --pages ${pages})
    endif()
    set(tables ${CMAKE_CURRENT_BINARY_DIR}/generated/${exam}_banks.cpp)
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${banks}/*.toml)
    file(GLOB chapters CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${book}/*.md)
    file(GLOB content_files LIST_DIRECTORIES false CONFIGURE_DEPENDS
      ${PROJECT_SOURCE_DIR}/${content}/*)
    # Run in the root of the project, the compiler names the sources by short paths.
    add_custom_command(
      OUTPUT ${tables}
      COMMAND bank_compiler --exam ${exam} --banks ${banks} --content ${content} --book ${book}
        --labs ${labs} ${set_book} --output ${tables} --depfile ${tables}.d
      DEPENDS bank_compiler ${sources} ${content_files} ${chapters} ${lab_files} ${pages}
      DEPFILE ${tables}.d
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
      COMMENT "Compiling the banks of ${exam}"
      VERBATIM)
    target_sources(${target} PRIVATE ${tables})
  endforeach()
endfunction()
