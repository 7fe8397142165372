# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Tests that a build for Windows leaves out: mv_add_test() does not build them there. The reasons are what they
# need; a test that only in part needs something else skips that part itself.

# mv_leave_out(REASON TESTS...)
function(mv_leave_out reason)
    message(VERBOSE "Tests left out, which need ${reason}: ${ARGN}")
    foreach(test IN LISTS ARGN)
        set_property(GLOBAL APPEND PROPERTY MV_LEFT_OUT ${test})
    endforeach()
endfunction()

if(NOT WIN32)
    return()
endif()

mv_leave_out(
    "a library that is preloaded into a program" tst_CurWrapper_unnamed tst_UtilsDurable
    tst_FavouritesFile_durable tst_mvpublish_killed tst_mvpublish_unreadable tst_mvpublish_uploadKilled)
mv_leave_out("a folder that stays open while it is renamed" tst_mvpublish_replace)
mv_leave_out("the time of a thread in steps below 10 ms" tst_catalogueGrowth tst_ItemIndex tst_largeCatalogue)
mv_leave_out("an HTTPS server" tst_CurWrapper_tls tst_TransferPool_http2)
mv_leave_out(
    "programs of the other systems: nginx, rclone, minisign, a shell"
    tst_checkNginx
    tst_ReleaseSignature
    tst_translations
    tst_mvpublish_example
    tst_mvpublish_nginx
    tst_mvpublish_nginxCache
    tst_mvpublish_roundTrip
    tst_mvpublish_sign
    tst_mvpublish_upload
    tst_mvpublish_uploadBroken
    tst_mvpublish_uploadPrune
    tst_mvpublish_uploadRefusals
    tst_mvpublish_verify
    tst_mvpublish_verifyServer)
mv_leave_out("a pseudo terminal" tst_ProgressLine tst_mvpublish_keys tst_mvres_checkTerminal
             tst_mvres_fetchTerminal)
mv_leave_out("signals that end a program in an orderly way" tst_mvres_fetchInterrupt)
