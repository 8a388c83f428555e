# cpack reads this before it makes the packages.
set(ENV{SOURCE_DATE_EPOCH} ${CPACK_SOURCE_DATE})
