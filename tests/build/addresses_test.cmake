# SPDX-License-Identifier: MIT
# An address of the service that is not an HTTPS URL without a path stops the configuration with a
# sentence that names it; one that is does not. Runs with: cmake -D SOURCE_DIR=… -P addresses_test.cmake

set(names TARNWICK_PROD_LOGIN_SERVER TARNWICK_DEV_LOGIN_SERVER TARNWICK_API_HOST TARNWICK_WEB_HOST
          TARNWICK_WEB_SITE)

# configure(NAME VALUE): sets `status` and `text` to what the configuration did and said.
function(configure name value)
  execute_process(
    COMMAND ${CMAKE_COMMAND} "-D${name}=${value}" -P ${SOURCE_DIR}/cmake/addresses.cmake
    RESULT_VARIABLE status OUTPUT_VARIABLE text ERROR_VARIABLE text)
  string(REGEX REPLACE "[ \n]+" " " text "${text}") # CMake breaks the lines of its messages
  set(status "${status}" PARENT_SCOPE)
  set(text "${text}" PARENT_SCOPE)
endfunction()

foreach(name IN LISTS names)
  foreach(value IN ITEMS "" " " "control.example" "http://control.example" "https://"
                         "https://control.example/" "https://control.example/path"
                         "https://control.example?x=1" "https://control.example#top"
                         "https://user@control.example" "https://a b.example" "https://-a.example"
                         "https://control.example:port" "ftp://control.example")
    configure(${name} "${value}")
    if(status EQUAL 0)
      message(SEND_ERROR "${name} may be \"${value}\"")
    elseif(NOT text MATCHES "${name} must be an HTTPS URL without a path")
      message(SEND_ERROR "\"${value}\" for ${name} is refused without a sentence: ${text}")
    endif()
  endforeach()
  foreach(value IN ITEMS "https://control.example" "https://localhost:8443" "https://127.0.0.1"
                         "https://a-b.c.example")
    configure(${name} "${value}")
    if(NOT status EQUAL 0)
      message(SEND_ERROR "${name} may not be \"${value}\": ${text}")
    endif()
  endforeach()
endforeach()
