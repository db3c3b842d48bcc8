#!/usr/bin/env bash
case $1 in exec) shift; exec "$@";; esac
