# Hardening of all that is built, as Debian builds its own packages: -DKTO_HARDEN=ON. A test looks
# for it in what comes out. Control-flow protection is left out: the linker drops it beside the start
# files of Debian 12, which are without.
if(KTO_HARDEN)
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
  add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -D_GLIBCXX_ASSERTIONS
                      -fstack-protector-strong -fstack-clash-protection)
  add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
endif()
