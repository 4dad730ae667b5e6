# SPDX-License-Identifier: MIT
# The service's addresses. A deployment sets its own with -D; each is an HTTPS URL without a path,
# so that a slip is found here and not by a user whose log-in fails.

function(tarnwick_address name default description)
  set(${name} "${default}" CACHE STRING "${description}, an HTTPS URL without a path")
  if(NOT "${${name}}" MATCHES "^https://[A-Za-z0-9]([A-Za-z0-9.-]*[A-Za-z0-9])?(:[0-9]+)?$")
    message(FATAL_ERROR "${name} must be an HTTPS URL without a path, such as "
                        "${default}, but it is \"${${name}}\".")
  endif()
endfunction()

tarnwick_address(TARNWICK_PROD_LOGIN_SERVER "https://control.tarnwick.example"
                 "The production control server")
tarnwick_address(TARNWICK_DEV_LOGIN_SERVER "https://control-dev.tarnwick.example"
                 "The development control server")
tarnwick_address(TARNWICK_API_HOST "https://api.tarnwick.example"
                 "The host that publishes the version manifest")
tarnwick_address(TARNWICK_WEB_HOST "https://www.tarnwick.example"
                 "The host of the download page")
tarnwick_address(TARNWICK_WEB_SITE "https://tarnwick.example"
                 "The web site that the panel opens")
