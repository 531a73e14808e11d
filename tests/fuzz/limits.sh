# SPDX-License-Identifier: MPL-2.0
# What the inputs of a subject may take: their length, and in MB the largest piece of memory.
case $1 in
  picture) longest=2000 largest=64 ;;
  document) longest=4000 largest=128 ;;
  *) longest=600 largest=128 ;;
esac
