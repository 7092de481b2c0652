# Sanitizers for the whole build, own code and tests alike: -DKTO_SANITIZE=address,undefined.
if(KTO_SANITIZE)
  add_compile_options(-fsanitize=${KTO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${KTO_SANITIZE})
endif()

# Counts lines and branches for gcov: -DKTO_COVERAGE=ON.
if(KTO_COVERAGE)
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()
