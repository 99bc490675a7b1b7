#!/usr/bin/env bash
# Signs a DLL or an installer in place, with what the environment names; without, it leaves the file
# alone and says so.
# Usage: tools/package/sign.sh FILE
#
#   FETCHKIT_SIGN_COMMAND      a program or script of yours, called with the file; it signs in place
# or, with osslsigncode:
#   FETCHKIT_SIGN_CERTIFICATE  certificate and key in a PKCS#12 file, or the certificate in PEM
#   FETCHKIT_SIGN_KEY          the key in PEM, when the certificate is in PEM
#   FETCHKIT_SIGN_PASSWORD     a file that holds the password; no password stands on a command line
#   FETCHKIT_SIGN_TIMESTAMP    address of a time-stamp authority (RFC 3161). Without one the signature
#                              ends with the certificate, and says the time of the commit
set -euo pipefail
file=$1
if [[ -n ${FETCHKIT_SIGN_COMMAND:-} ]]; then
  "$FETCHKIT_SIGN_COMMAND" "$file"
elif [[ -n ${FETCHKIT_SIGN_CERTIFICATE:-} ]]; then
  key=(-pkcs12 "$FETCHKIT_SIGN_CERTIFICATE")
  [[ -z ${FETCHKIT_SIGN_KEY:-} ]] || key=(-certs "$FETCHKIT_SIGN_CERTIFICATE" -key "$FETCHKIT_SIGN_KEY")
  [[ -z ${FETCHKIT_SIGN_PASSWORD:-} ]] || key+=(-readpass "$FETCHKIT_SIGN_PASSWORD")
  time=(-time "${SOURCE_DATE_EPOCH:-$(date +%s)}")
  [[ -z ${FETCHKIT_SIGN_TIMESTAMP:-} ]] || time=(-ts "$FETCHKIT_SIGN_TIMESTAMP")
  signed=$file.signed
  trap 'rm -f "$signed"' EXIT
  osslsigncode sign "${key[@]}" "${time[@]}" -h sha256 -n FetchKit -in "$file" -out "$signed" >&2
  mv "$signed" "$file"
else
  echo "Not signed: $file (FETCHKIT_SIGN_CERTIFICATE or FETCHKIT_SIGN_COMMAND names nothing)" >&2
fi
