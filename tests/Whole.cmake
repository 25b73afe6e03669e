# Tests of the Windows builds, the fuzz targets and the sources, so that one CTest run covers everything. What is
# not built is skipped, unless KESTRUM_ALL=1 is in the environment (as test.sh has it).
set(root ${CMAKE_SOURCE_DIR})
set(underWine ${root}/tools/under-wine.sh)

function(kestrum_wine_test name)
  add_test(NAME ${name} COMMAND ${underWine} ${ARGN} WORKING_DIRECTORY ${root})
  set_tests_properties(${name} PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 400 LABELS wine)
endfunction()

kestrum_wine_test(win64_contract build/win64/tests/contract/contract.exe)
kestrum_wine_test(win64_desktop build/win64/tests/desktop/desktop.exe Z:${root}/dist/win64)
kestrum_wine_test(win64_handles build/win64/tests/handles/handles.exe)
kestrum_wine_test(win32_contract --i386 build/win32/tests/contract/contract.exe)
kestrum_wine_test(win32_desktop --i386 build/win32/tests/desktop/desktop.exe Z:${root}/dist/win32)

kestrum_wine_test(win32_handles --i386 build/win32/tests/handles/handles.exe)

add_test(NAME fuzz COMMAND ${root}/tools/fuzz-smoke.sh)
set_tests_properties(fuzz PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 900)  # with test.sh --long

# With test.sh --long only.
add_test(NAME soak_week COMMAND sh -c
  "test -n \"$KESTRUM_LONG\" || exit 77; exec \"$<TARGET_FILE:unit_app>\" --no-skip --test-case=\"A week*\"")
set_tests_properties(soak_week PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 3600)

add_test(NAME sources COMMAND ${root}/tools/check-sources.py)
add_test(NAME sources_self_test COMMAND ${root}/tools/check-sources.py --self-test)
