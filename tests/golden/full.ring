put tmp_asd/left/over
enqueue 1 1001
= 2 Request Map Empty
= 2 dequeueAll:i =0 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =1 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =2 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =3 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =4 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =5 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =6 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =7 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =8 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =9 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =10 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =11 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =12 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =13 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =14 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =15 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =16 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =17 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =18 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =19 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =20 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =21 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =22 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =23 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =24 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =25 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =26 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =27 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =28 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =29 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =30 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =31 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =32 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =33 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =34 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =35 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =36 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =37 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =38 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =39 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =40 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =41 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =42 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =43 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =44 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =45 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =46 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =47 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =48 ,front =0, rear =0, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =49 ,front =0, rear =0, count = 50
= 2 add request fwkID:1<==>chiID:1001<==>index:1
insert 1001 501 1
= 2 iFromCamx:fwkID:1<==>chiId:1001<==>camxID:501<==>index:1
enqueue 2 1002
= 2 Request Map Not FULL for fwkID:1
= 2 add request fwkID:2<==>chiID:1002<==>index:2
insert 1002 502 2
= 2 iFromCamx:fwkID:2<==>chiId:1002<==>camxID:502<==>index:2
enqueue 3 1003
= 2 Request Map Not FULL for fwkID:2
= 2 add request fwkID:3<==>chiID:1003<==>index:3
insert 1003 503 3
= 2 iFromCamx:fwkID:3<==>chiId:1003<==>camxID:503<==>index:3
enqueue 4 1004
= 2 Request Map Not FULL for fwkID:3
= 2 add request fwkID:4<==>chiID:1004<==>index:4
insert 1004 504 0
= 2 iFromCamx:fwkID:4<==>chiId:1004<==>camxID:504<==>index:4
enqueue 5 1005
= 2 Request Map Not FULL for fwkID:4
= 2 add request fwkID:5<==>chiID:1005<==>index:5
insert 1005 505 1
= 2 iFromCamx:fwkID:5<==>chiId:1005<==>camxID:505<==>index:5
enqueue 6 1006
= 2 Request Map Not FULL for fwkID:5
= 2 add request fwkID:6<==>chiID:1006<==>index:6
insert 1006 506 2
= 2 iFromCamx:fwkID:6<==>chiId:1006<==>camxID:506<==>index:6
enqueue 7 1007
= 2 Request Map Not FULL for fwkID:6
= 2 add request fwkID:7<==>chiID:1007<==>index:7
insert 1007 507 3
= 2 iFromCamx:fwkID:7<==>chiId:1007<==>camxID:507<==>index:7
enqueue 8 1008
= 2 Request Map Not FULL for fwkID:7
= 2 add request fwkID:8<==>chiID:1008<==>index:8
insert 1008 508 0
= 2 iFromCamx:fwkID:8<==>chiId:1008<==>camxID:508<==>index:8
enqueue 9 1009
= 2 Request Map Not FULL for fwkID:8
= 2 add request fwkID:9<==>chiID:1009<==>index:9
insert 1009 509 1
= 2 iFromCamx:fwkID:9<==>chiId:1009<==>camxID:509<==>index:9
enqueue 10 1010
= 2 Request Map Not FULL for fwkID:9
= 2 add request fwkID:10<==>chiID:1010<==>index:10
insert 1010 510 2
= 2 iFromCamx:fwkID:10<==>chiId:1010<==>camxID:510<==>index:10
enqueue 11 1011
= 2 Request Map Not FULL for fwkID:10
= 2 add request fwkID:11<==>chiID:1011<==>index:11
insert 1011 511 3
= 2 iFromCamx:fwkID:11<==>chiId:1011<==>camxID:511<==>index:11
enqueue 12 1012
= 2 Request Map Not FULL for fwkID:11
= 2 add request fwkID:12<==>chiID:1012<==>index:12
insert 1012 512 0
= 2 iFromCamx:fwkID:12<==>chiId:1012<==>camxID:512<==>index:12
enqueue 13 1013
= 2 Request Map Not FULL for fwkID:12
= 2 add request fwkID:13<==>chiID:1013<==>index:13
insert 1013 513 1
= 2 iFromCamx:fwkID:13<==>chiId:1013<==>camxID:513<==>index:13
enqueue 14 1014
= 2 Request Map Not FULL for fwkID:13
= 2 add request fwkID:14<==>chiID:1014<==>index:14
insert 1014 514 2
= 2 iFromCamx:fwkID:14<==>chiId:1014<==>camxID:514<==>index:14
enqueue 15 1015
= 2 Request Map Not FULL for fwkID:14
= 2 add request fwkID:15<==>chiID:1015<==>index:15
insert 1015 515 3
= 2 iFromCamx:fwkID:15<==>chiId:1015<==>camxID:515<==>index:15
enqueue 16 1016
= 2 Request Map Not FULL for fwkID:15
= 2 add request fwkID:16<==>chiID:1016<==>index:16
insert 1016 516 0
= 2 iFromCamx:fwkID:16<==>chiId:1016<==>camxID:516<==>index:16
enqueue 17 1017
= 2 Request Map Not FULL for fwkID:16
= 2 add request fwkID:17<==>chiID:1017<==>index:17
insert 1017 517 1
= 2 iFromCamx:fwkID:17<==>chiId:1017<==>camxID:517<==>index:17
enqueue 18 1018
= 2 Request Map Not FULL for fwkID:17
= 2 add request fwkID:18<==>chiID:1018<==>index:18
insert 1018 518 2
= 2 iFromCamx:fwkID:18<==>chiId:1018<==>camxID:518<==>index:18
enqueue 19 1019
= 2 Request Map Not FULL for fwkID:18
= 2 add request fwkID:19<==>chiID:1019<==>index:19
insert 1019 519 3
= 2 iFromCamx:fwkID:19<==>chiId:1019<==>camxID:519<==>index:19
enqueue 20 1020
= 2 Request Map Not FULL for fwkID:19
= 2 add request fwkID:20<==>chiID:1020<==>index:20
insert 1020 520 0
= 2 iFromCamx:fwkID:20<==>chiId:1020<==>camxID:520<==>index:20
enqueue 21 1021
= 2 Request Map Not FULL for fwkID:20
= 2 add request fwkID:21<==>chiID:1021<==>index:21
insert 1021 521 1
= 2 iFromCamx:fwkID:21<==>chiId:1021<==>camxID:521<==>index:21
enqueue 22 1022
= 2 Request Map Not FULL for fwkID:21
= 2 add request fwkID:22<==>chiID:1022<==>index:22
insert 1022 522 2
= 2 iFromCamx:fwkID:22<==>chiId:1022<==>camxID:522<==>index:22
enqueue 23 1023
= 2 Request Map Not FULL for fwkID:22
= 2 add request fwkID:23<==>chiID:1023<==>index:23
insert 1023 523 3
= 2 iFromCamx:fwkID:23<==>chiId:1023<==>camxID:523<==>index:23
enqueue 24 1024
= 2 Request Map Not FULL for fwkID:23
= 2 add request fwkID:24<==>chiID:1024<==>index:24
insert 1024 524 0
= 2 iFromCamx:fwkID:24<==>chiId:1024<==>camxID:524<==>index:24
enqueue 25 1025
= 2 Request Map Not FULL for fwkID:24
= 2 add request fwkID:25<==>chiID:1025<==>index:25
insert 1025 525 1
= 2 iFromCamx:fwkID:25<==>chiId:1025<==>camxID:525<==>index:25
enqueue 26 1026
= 2 Request Map Not FULL for fwkID:25
= 2 add request fwkID:26<==>chiID:1026<==>index:26
insert 1026 526 2
= 2 iFromCamx:fwkID:26<==>chiId:1026<==>camxID:526<==>index:26
enqueue 27 1027
= 2 Request Map Not FULL for fwkID:26
= 2 add request fwkID:27<==>chiID:1027<==>index:27
insert 1027 527 3
= 2 iFromCamx:fwkID:27<==>chiId:1027<==>camxID:527<==>index:27
enqueue 28 1028
= 2 Request Map Not FULL for fwkID:27
= 2 add request fwkID:28<==>chiID:1028<==>index:28
insert 1028 528 0
= 2 iFromCamx:fwkID:28<==>chiId:1028<==>camxID:528<==>index:28
enqueue 29 1029
= 2 Request Map Not FULL for fwkID:28
= 2 add request fwkID:29<==>chiID:1029<==>index:29
insert 1029 529 1
= 2 iFromCamx:fwkID:29<==>chiId:1029<==>camxID:529<==>index:29
enqueue 30 1030
= 2 Request Map Not FULL for fwkID:29
= 2 add request fwkID:30<==>chiID:1030<==>index:30
insert 1030 530 2
= 2 iFromCamx:fwkID:30<==>chiId:1030<==>camxID:530<==>index:30
enqueue 31 1031
= 2 Request Map Not FULL for fwkID:30
= 2 add request fwkID:31<==>chiID:1031<==>index:31
insert 1031 531 3
= 2 iFromCamx:fwkID:31<==>chiId:1031<==>camxID:531<==>index:31
enqueue 32 1032
= 2 Request Map Not FULL for fwkID:31
= 2 add request fwkID:32<==>chiID:1032<==>index:32
insert 1032 532 0
= 2 iFromCamx:fwkID:32<==>chiId:1032<==>camxID:532<==>index:32
enqueue 33 1033
= 2 Request Map Not FULL for fwkID:32
= 2 add request fwkID:33<==>chiID:1033<==>index:33
insert 1033 533 1
= 2 iFromCamx:fwkID:33<==>chiId:1033<==>camxID:533<==>index:33
enqueue 34 1034
= 2 Request Map Not FULL for fwkID:33
= 2 add request fwkID:34<==>chiID:1034<==>index:34
insert 1034 534 2
= 2 iFromCamx:fwkID:34<==>chiId:1034<==>camxID:534<==>index:34
enqueue 35 1035
= 2 Request Map Not FULL for fwkID:34
= 2 add request fwkID:35<==>chiID:1035<==>index:35
insert 1035 535 3
= 2 iFromCamx:fwkID:35<==>chiId:1035<==>camxID:535<==>index:35
enqueue 36 1036
= 2 Request Map Not FULL for fwkID:35
= 2 add request fwkID:36<==>chiID:1036<==>index:36
insert 1036 536 0
= 2 iFromCamx:fwkID:36<==>chiId:1036<==>camxID:536<==>index:36
enqueue 37 1037
= 2 Request Map Not FULL for fwkID:36
= 2 add request fwkID:37<==>chiID:1037<==>index:37
insert 1037 537 1
= 2 iFromCamx:fwkID:37<==>chiId:1037<==>camxID:537<==>index:37
enqueue 38 1038
= 2 Request Map Not FULL for fwkID:37
= 2 add request fwkID:38<==>chiID:1038<==>index:38
insert 1038 538 2
= 2 iFromCamx:fwkID:38<==>chiId:1038<==>camxID:538<==>index:38
enqueue 39 1039
= 2 Request Map Not FULL for fwkID:38
= 2 add request fwkID:39<==>chiID:1039<==>index:39
insert 1039 539 3
= 2 iFromCamx:fwkID:39<==>chiId:1039<==>camxID:539<==>index:39
enqueue 40 1040
= 2 Request Map Not FULL for fwkID:39
= 2 add request fwkID:40<==>chiID:1040<==>index:40
insert 1040 540 0
= 2 iFromCamx:fwkID:40<==>chiId:1040<==>camxID:540<==>index:40
enqueue 41 1041
= 2 Request Map Not FULL for fwkID:40
= 2 add request fwkID:41<==>chiID:1041<==>index:41
insert 1041 541 1
= 2 iFromCamx:fwkID:41<==>chiId:1041<==>camxID:541<==>index:41
enqueue 42 1042
= 2 Request Map Not FULL for fwkID:41
= 2 add request fwkID:42<==>chiID:1042<==>index:42
insert 1042 542 2
= 2 iFromCamx:fwkID:42<==>chiId:1042<==>camxID:542<==>index:42
enqueue 43 1043
= 2 Request Map Not FULL for fwkID:42
= 2 add request fwkID:43<==>chiID:1043<==>index:43
insert 1043 543 3
= 2 iFromCamx:fwkID:43<==>chiId:1043<==>camxID:543<==>index:43
enqueue 44 1044
= 2 Request Map Not FULL for fwkID:43
= 2 add request fwkID:44<==>chiID:1044<==>index:44
insert 1044 544 0
= 2 iFromCamx:fwkID:44<==>chiId:1044<==>camxID:544<==>index:44
enqueue 45 1045
= 2 Request Map Not FULL for fwkID:44
= 2 add request fwkID:45<==>chiID:1045<==>index:45
insert 1045 545 1
= 2 iFromCamx:fwkID:45<==>chiId:1045<==>camxID:545<==>index:45
enqueue 46 1046
= 2 Request Map Not FULL for fwkID:45
= 2 add request fwkID:46<==>chiID:1046<==>index:46
insert 1046 546 2
= 2 iFromCamx:fwkID:46<==>chiId:1046<==>camxID:546<==>index:46
enqueue 47 1047
= 2 Request Map Not FULL for fwkID:46
= 2 add request fwkID:47<==>chiID:1047<==>index:47
insert 1047 547 3
= 2 iFromCamx:fwkID:47<==>chiId:1047<==>camxID:547<==>index:47
enqueue 48 1048
= 2 Request Map Not FULL for fwkID:47
= 2 add request fwkID:48<==>chiID:1048<==>index:48
insert 1048 548 0
= 2 iFromCamx:fwkID:48<==>chiId:1048<==>camxID:548<==>index:48
enqueue 49 1049
= 2 Request Map Not FULL for fwkID:48
= 2 add request fwkID:49<==>chiID:1049<==>index:49
insert 1049 549 1
= 2 iFromCamx:fwkID:49<==>chiId:1049<==>camxID:549<==>index:49
enqueue 50 1050
= 2 add request fwkID:50<==>chiID:1050<==>index:0
insert 1050 550 2
= 2 iFromCamx:fwkID:50<==>chiId:1050<==>camxID:550<==>index:0
enqueue 51 1051
= 2 dequeue:fwkID:1<==>chi:1001<==>camx:501----camid:1 imageName: new frontId:2
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[501]_camId[1].
= 2 add request fwkID:51<==>chiID:1051<==>index:1
insert 1051 551 3
= 2 iFromCamx:fwkID:51<==>chiId:1051<==>camxID:551<==>index:1
enqueue 52 1052
= 2 dequeue:fwkID:2<==>chi:1002<==>camx:502----camid:2 imageName: new frontId:3
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[502]_camId[2].
= 2 add request fwkID:52<==>chiID:1052<==>index:2
insert 1052 552 0
= 2 iFromCamx:fwkID:52<==>chiId:1052<==>camxID:552<==>index:2
enqueue 53 1053
= 2 dequeue:fwkID:3<==>chi:1003<==>camx:503----camid:3 imageName: new frontId:4
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[503]_camId[3].
= 2 add request fwkID:53<==>chiID:1053<==>index:3
insert 1053 553 1
= 2 iFromCamx:fwkID:53<==>chiId:1053<==>camxID:553<==>index:3
enqueue 54 1054
= 2 dequeue:fwkID:4<==>chi:1004<==>camx:504----camid:0 imageName: new frontId:5
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[504]_camId[0].
= 2 add request fwkID:54<==>chiID:1054<==>index:4
insert 1054 554 2
= 2 iFromCamx:fwkID:54<==>chiId:1054<==>camxID:554<==>index:4
enqueue 55 1055
= 2 dequeue:fwkID:5<==>chi:1005<==>camx:505----camid:1 imageName: new frontId:6
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[505]_camId[1].
= 2 add request fwkID:55<==>chiID:1055<==>index:5
insert 1055 555 3
= 2 iFromCamx:fwkID:55<==>chiId:1055<==>camxID:555<==>index:5
enqueue 56 1056
= 2 dequeue:fwkID:6<==>chi:1006<==>camx:506----camid:2 imageName: new frontId:7
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[506]_camId[2].
= 2 add request fwkID:56<==>chiID:1056<==>index:6
insert 1056 556 0
= 2 iFromCamx:fwkID:56<==>chiId:1056<==>camxID:556<==>index:6
enqueue 57 1057
= 2 dequeue:fwkID:7<==>chi:1007<==>camx:507----camid:3 imageName: new frontId:8
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[507]_camId[3].
= 2 add request fwkID:57<==>chiID:1057<==>index:7
insert 1057 557 1
= 2 iFromCamx:fwkID:57<==>chiId:1057<==>camxID:557<==>index:7
enqueue 58 1058
= 2 dequeue:fwkID:8<==>chi:1008<==>camx:508----camid:0 imageName: new frontId:9
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[508]_camId[0].
= 2 add request fwkID:58<==>chiID:1058<==>index:8
insert 1058 558 2
= 2 iFromCamx:fwkID:58<==>chiId:1058<==>camxID:558<==>index:8
enqueue 59 1059
= 2 dequeue:fwkID:9<==>chi:1009<==>camx:509----camid:1 imageName: new frontId:10
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[509]_camId[1].
= 2 add request fwkID:59<==>chiID:1059<==>index:9
insert 1059 559 3
= 2 iFromCamx:fwkID:59<==>chiId:1059<==>camxID:559<==>index:9
enqueue 60 1060
= 2 dequeue:fwkID:10<==>chi:1010<==>camx:510----camid:2 imageName: new frontId:11
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[510]_camId[2].
= 2 add request fwkID:60<==>chiID:1060<==>index:10
insert 1060 560 0
= 2 iFromCamx:fwkID:60<==>chiId:1060<==>camxID:560<==>index:10
enqueue 61 1061
= 2 dequeue:fwkID:11<==>chi:1011<==>camx:511----camid:3 imageName: new frontId:12
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[511]_camId[3].
= 2 add request fwkID:61<==>chiID:1061<==>index:11
insert 1061 561 1
= 2 iFromCamx:fwkID:61<==>chiId:1061<==>camxID:561<==>index:11
enqueue 62 1062
= 2 dequeue:fwkID:12<==>chi:1012<==>camx:512----camid:0 imageName: new frontId:13
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[512]_camId[0].
= 2 add request fwkID:62<==>chiID:1062<==>index:12
insert 1062 562 2
= 2 iFromCamx:fwkID:62<==>chiId:1062<==>camxID:562<==>index:12
enqueue 63 1063
= 2 dequeue:fwkID:13<==>chi:1013<==>camx:513----camid:1 imageName: new frontId:14
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[513]_camId[1].
= 2 add request fwkID:63<==>chiID:1063<==>index:13
insert 1063 563 3
= 2 iFromCamx:fwkID:63<==>chiId:1063<==>camxID:563<==>index:13
enqueue 64 1064
= 2 dequeue:fwkID:14<==>chi:1014<==>camx:514----camid:2 imageName: new frontId:15
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[514]_camId[2].
= 2 add request fwkID:64<==>chiID:1064<==>index:14
insert 1064 564 0
= 2 iFromCamx:fwkID:64<==>chiId:1064<==>camxID:564<==>index:14
enqueue 65 1065
= 2 dequeue:fwkID:15<==>chi:1015<==>camx:515----camid:3 imageName: new frontId:16
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[515]_camId[3].
= 2 add request fwkID:65<==>chiID:1065<==>index:15
insert 1065 565 1
= 2 iFromCamx:fwkID:65<==>chiId:1065<==>camxID:565<==>index:15
enqueue 66 1066
= 2 dequeue:fwkID:16<==>chi:1016<==>camx:516----camid:0 imageName: new frontId:17
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[516]_camId[0].
= 2 add request fwkID:66<==>chiID:1066<==>index:16
insert 1066 566 2
= 2 iFromCamx:fwkID:66<==>chiId:1066<==>camxID:566<==>index:16
enqueue 67 1067
= 2 dequeue:fwkID:17<==>chi:1017<==>camx:517----camid:1 imageName: new frontId:18
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[517]_camId[1].
= 2 add request fwkID:67<==>chiID:1067<==>index:17
insert 1067 567 3
= 2 iFromCamx:fwkID:67<==>chiId:1067<==>camxID:567<==>index:17
enqueue 68 1068
= 2 dequeue:fwkID:18<==>chi:1018<==>camx:518----camid:2 imageName: new frontId:19
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[518]_camId[2].
= 2 add request fwkID:68<==>chiID:1068<==>index:18
insert 1068 568 0
= 2 iFromCamx:fwkID:68<==>chiId:1068<==>camxID:568<==>index:18
enqueue 69 1069
= 2 dequeue:fwkID:19<==>chi:1019<==>camx:519----camid:3 imageName: new frontId:20
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[519]_camId[3].
= 2 add request fwkID:69<==>chiID:1069<==>index:19
insert 1069 569 1
= 2 iFromCamx:fwkID:69<==>chiId:1069<==>camxID:569<==>index:19
enqueue 70 1070
= 2 dequeue:fwkID:20<==>chi:1020<==>camx:520----camid:0 imageName: new frontId:21
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[520]_camId[0].
= 2 add request fwkID:70<==>chiID:1070<==>index:20
insert 1070 570 2
= 2 iFromCamx:fwkID:70<==>chiId:1070<==>camxID:570<==>index:20
enqueue 71 1071
= 2 dequeue:fwkID:21<==>chi:1021<==>camx:521----camid:1 imageName: new frontId:22
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[521]_camId[1].
= 2 add request fwkID:71<==>chiID:1071<==>index:21
insert 1071 571 3
= 2 iFromCamx:fwkID:71<==>chiId:1071<==>camxID:571<==>index:21
enqueue 72 1072
= 2 dequeue:fwkID:22<==>chi:1022<==>camx:522----camid:2 imageName: new frontId:23
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[522]_camId[2].
= 2 add request fwkID:72<==>chiID:1072<==>index:22
insert 1072 572 0
= 2 iFromCamx:fwkID:72<==>chiId:1072<==>camxID:572<==>index:22
enqueue 73 1073
= 2 dequeue:fwkID:23<==>chi:1023<==>camx:523----camid:3 imageName: new frontId:24
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[523]_camId[3].
= 2 add request fwkID:73<==>chiID:1073<==>index:23
insert 1073 573 1
= 2 iFromCamx:fwkID:73<==>chiId:1073<==>camxID:573<==>index:23
enqueue 74 1074
= 2 dequeue:fwkID:24<==>chi:1024<==>camx:524----camid:0 imageName: new frontId:25
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[524]_camId[0].
= 2 add request fwkID:74<==>chiID:1074<==>index:24
insert 1074 574 2
= 2 iFromCamx:fwkID:74<==>chiId:1074<==>camxID:574<==>index:24
enqueue 75 1075
= 2 dequeue:fwkID:25<==>chi:1025<==>camx:525----camid:1 imageName: new frontId:26
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[525]_camId[1].
= 2 add request fwkID:75<==>chiID:1075<==>index:25
insert 1075 575 3
= 2 iFromCamx:fwkID:75<==>chiId:1075<==>camxID:575<==>index:25
enqueue 76 1076
= 2 dequeue:fwkID:26<==>chi:1026<==>camx:526----camid:2 imageName: new frontId:27
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[526]_camId[2].
= 2 add request fwkID:76<==>chiID:1076<==>index:26
insert 1076 576 0
= 2 iFromCamx:fwkID:76<==>chiId:1076<==>camxID:576<==>index:26
enqueue 77 1077
= 2 dequeue:fwkID:27<==>chi:1027<==>camx:527----camid:3 imageName: new frontId:28
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[527]_camId[3].
= 2 add request fwkID:77<==>chiID:1077<==>index:27
insert 1077 577 1
= 2 iFromCamx:fwkID:77<==>chiId:1077<==>camxID:577<==>index:27
enqueue 78 1078
= 2 dequeue:fwkID:28<==>chi:1028<==>camx:528----camid:0 imageName: new frontId:29
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[528]_camId[0].
= 2 add request fwkID:78<==>chiID:1078<==>index:28
insert 1078 578 2
= 2 iFromCamx:fwkID:78<==>chiId:1078<==>camxID:578<==>index:28
enqueue 79 1079
= 2 dequeue:fwkID:29<==>chi:1029<==>camx:529----camid:1 imageName: new frontId:30
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[529]_camId[1].
= 2 add request fwkID:79<==>chiID:1079<==>index:29
insert 1079 579 3
= 2 iFromCamx:fwkID:79<==>chiId:1079<==>camxID:579<==>index:29
enqueue 80 1080
= 2 dequeue:fwkID:30<==>chi:1030<==>camx:530----camid:2 imageName: new frontId:31
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[530]_camId[2].
= 2 add request fwkID:80<==>chiID:1080<==>index:30
insert 1080 580 0
= 2 iFromCamx:fwkID:80<==>chiId:1080<==>camxID:580<==>index:30
enqueue 81 1081
= 2 dequeue:fwkID:31<==>chi:1031<==>camx:531----camid:3 imageName: new frontId:32
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[531]_camId[3].
= 2 add request fwkID:81<==>chiID:1081<==>index:31
insert 1081 581 1
= 2 iFromCamx:fwkID:81<==>chiId:1081<==>camxID:581<==>index:31
enqueue 82 1082
= 2 dequeue:fwkID:32<==>chi:1032<==>camx:532----camid:0 imageName: new frontId:33
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[532]_camId[0].
= 2 add request fwkID:82<==>chiID:1082<==>index:32
insert 1082 582 2
= 2 iFromCamx:fwkID:82<==>chiId:1082<==>camxID:582<==>index:32
enqueue 83 1083
= 2 dequeue:fwkID:33<==>chi:1033<==>camx:533----camid:1 imageName: new frontId:34
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[533]_camId[1].
= 2 add request fwkID:83<==>chiID:1083<==>index:33
insert 1083 583 3
= 2 iFromCamx:fwkID:83<==>chiId:1083<==>camxID:583<==>index:33
enqueue 84 1084
= 2 dequeue:fwkID:34<==>chi:1034<==>camx:534----camid:2 imageName: new frontId:35
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[534]_camId[2].
= 2 add request fwkID:84<==>chiID:1084<==>index:34
insert 1084 584 0
= 2 iFromCamx:fwkID:84<==>chiId:1084<==>camxID:584<==>index:34
enqueue 85 1085
= 2 dequeue:fwkID:35<==>chi:1035<==>camx:535----camid:3 imageName: new frontId:36
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[535]_camId[3].
= 2 add request fwkID:85<==>chiID:1085<==>index:35
insert 1085 585 1
= 2 iFromCamx:fwkID:85<==>chiId:1085<==>camxID:585<==>index:35
enqueue 86 1086
= 2 dequeue:fwkID:36<==>chi:1036<==>camx:536----camid:0 imageName: new frontId:37
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[536]_camId[0].
= 2 add request fwkID:86<==>chiID:1086<==>index:36
insert 1086 586 2
= 2 iFromCamx:fwkID:86<==>chiId:1086<==>camxID:586<==>index:36
enqueue 87 1087
= 2 dequeue:fwkID:37<==>chi:1037<==>camx:537----camid:1 imageName: new frontId:38
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[537]_camId[1].
= 2 add request fwkID:87<==>chiID:1087<==>index:37
insert 1087 587 3
= 2 iFromCamx:fwkID:87<==>chiId:1087<==>camxID:587<==>index:37
enqueue 88 1088
= 2 dequeue:fwkID:38<==>chi:1038<==>camx:538----camid:2 imageName: new frontId:39
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[538]_camId[2].
= 2 add request fwkID:88<==>chiID:1088<==>index:38
insert 1088 588 0
= 2 iFromCamx:fwkID:88<==>chiId:1088<==>camxID:588<==>index:38
enqueue 89 1089
= 2 dequeue:fwkID:39<==>chi:1039<==>camx:539----camid:3 imageName: new frontId:40
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[539]_camId[3].
= 2 add request fwkID:89<==>chiID:1089<==>index:39
insert 1089 589 1
= 2 iFromCamx:fwkID:89<==>chiId:1089<==>camxID:589<==>index:39
enqueue 90 1090
= 2 dequeue:fwkID:40<==>chi:1040<==>camx:540----camid:0 imageName: new frontId:41
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[540]_camId[0].
= 2 add request fwkID:90<==>chiID:1090<==>index:40
insert 1090 590 2
= 2 iFromCamx:fwkID:90<==>chiId:1090<==>camxID:590<==>index:40
enqueue 91 1091
= 2 dequeue:fwkID:41<==>chi:1041<==>camx:541----camid:1 imageName: new frontId:42
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[541]_camId[1].
= 2 add request fwkID:91<==>chiID:1091<==>index:41
insert 1091 591 3
= 2 iFromCamx:fwkID:91<==>chiId:1091<==>camxID:591<==>index:41
enqueue 92 1092
= 2 dequeue:fwkID:42<==>chi:1042<==>camx:542----camid:2 imageName: new frontId:43
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[542]_camId[2].
= 2 add request fwkID:92<==>chiID:1092<==>index:42
insert 1092 592 0
= 2 iFromCamx:fwkID:92<==>chiId:1092<==>camxID:592<==>index:42
enqueue 93 1093
= 2 dequeue:fwkID:43<==>chi:1043<==>camx:543----camid:3 imageName: new frontId:44
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[543]_camId[3].
= 2 add request fwkID:93<==>chiID:1093<==>index:43
insert 1093 593 1
= 2 iFromCamx:fwkID:93<==>chiId:1093<==>camxID:593<==>index:43
enqueue 94 1094
= 2 dequeue:fwkID:44<==>chi:1044<==>camx:544----camid:0 imageName: new frontId:45
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[544]_camId[0].
= 2 add request fwkID:94<==>chiID:1094<==>index:44
insert 1094 594 2
= 2 iFromCamx:fwkID:94<==>chiId:1094<==>camxID:594<==>index:44
enqueue 95 1095
= 2 dequeue:fwkID:45<==>chi:1045<==>camx:545----camid:1 imageName: new frontId:46
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[545]_camId[1].
= 2 add request fwkID:95<==>chiID:1095<==>index:45
insert 1095 595 3
= 2 iFromCamx:fwkID:95<==>chiId:1095<==>camxID:595<==>index:45
enqueue 96 1096
= 2 dequeue:fwkID:46<==>chi:1046<==>camx:546----camid:2 imageName: new frontId:47
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[546]_camId[2].
= 2 add request fwkID:96<==>chiID:1096<==>index:46
insert 1096 596 0
= 2 iFromCamx:fwkID:96<==>chiId:1096<==>camxID:596<==>index:46
enqueue 97 1097
= 2 dequeue:fwkID:47<==>chi:1047<==>camx:547----camid:3 imageName: new frontId:48
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[547]_camId[3].
= 2 add request fwkID:97<==>chiID:1097<==>index:47
insert 1097 597 1
= 2 iFromCamx:fwkID:97<==>chiId:1097<==>camxID:597<==>index:47
enqueue 98 1098
= 2 dequeue:fwkID:48<==>chi:1048<==>camx:548----camid:0 imageName: new frontId:49
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[548]_camId[0].
= 2 add request fwkID:98<==>chiID:1098<==>index:48
insert 1098 598 2
= 2 iFromCamx:fwkID:98<==>chiId:1098<==>camxID:598<==>index:48
enqueue 99 1099
= 2 dequeue:fwkID:49<==>chi:1049<==>camx:549----camid:1 imageName: new frontId:0
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[549]_camId[1].
= 2 add request fwkID:99<==>chiID:1099<==>index:49
insert 1099 599 3
= 2 iFromCamx:fwkID:99<==>chiId:1099<==>camxID:599<==>index:49
enqueue 100 1100
= 2 dequeue:fwkID:50<==>chi:1050<==>camx:550----camid:2 imageName: new frontId:1
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[550]_camId[2].
= 2 add request fwkID:100<==>chiID:1100<==>index:0
insert 1100 600 0
= 2 iFromCamx:fwkID:100<==>chiId:1100<==>camxID:600<==>index:0
enqueue 101 1101
= 2 dequeue:fwkID:51<==>chi:1051<==>camx:551----camid:3 imageName: new frontId:2
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[551]_camId[3].
= 2 add request fwkID:101<==>chiID:1101<==>index:1
insert 1101 601 1
= 2 iFromCamx:fwkID:101<==>chiId:1101<==>camxID:601<==>index:1
enqueue 102 1102
= 2 dequeue:fwkID:52<==>chi:1052<==>camx:552----camid:0 imageName: new frontId:3
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[552]_camId[0].
= 2 add request fwkID:102<==>chiID:1102<==>index:2
insert 1102 602 2
= 2 iFromCamx:fwkID:102<==>chiId:1102<==>camxID:602<==>index:2
enqueue 103 1103
= 2 dequeue:fwkID:53<==>chi:1053<==>camx:553----camid:1 imageName: new frontId:4
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[553]_camId[1].
= 2 add request fwkID:103<==>chiID:1103<==>index:3
insert 1103 603 3
= 2 iFromCamx:fwkID:103<==>chiId:1103<==>camxID:603<==>index:3
enqueue 104 1104
= 2 dequeue:fwkID:54<==>chi:1054<==>camx:554----camid:2 imageName: new frontId:5
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[554]_camId[2].
= 2 add request fwkID:104<==>chiID:1104<==>index:4
insert 1104 604 0
= 2 iFromCamx:fwkID:104<==>chiId:1104<==>camxID:604<==>index:4
enqueue 105 1105
= 2 dequeue:fwkID:55<==>chi:1055<==>camx:555----camid:3 imageName: new frontId:6
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[555]_camId[3].
= 2 add request fwkID:105<==>chiID:1105<==>index:5
insert 1105 605 1
= 2 iFromCamx:fwkID:105<==>chiId:1105<==>camxID:605<==>index:5
enqueue 106 1106
= 2 dequeue:fwkID:56<==>chi:1056<==>camx:556----camid:0 imageName: new frontId:7
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[556]_camId[0].
= 2 add request fwkID:106<==>chiID:1106<==>index:6
insert 1106 606 2
= 2 iFromCamx:fwkID:106<==>chiId:1106<==>camxID:606<==>index:6
enqueue 107 1107
= 2 dequeue:fwkID:57<==>chi:1057<==>camx:557----camid:1 imageName: new frontId:8
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[557]_camId[1].
= 2 add request fwkID:107<==>chiID:1107<==>index:7
insert 1107 607 3
= 2 iFromCamx:fwkID:107<==>chiId:1107<==>camxID:607<==>index:7
enqueue 108 1108
= 2 dequeue:fwkID:58<==>chi:1058<==>camx:558----camid:2 imageName: new frontId:9
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[558]_camId[2].
= 2 add request fwkID:108<==>chiID:1108<==>index:8
insert 1108 608 0
= 2 iFromCamx:fwkID:108<==>chiId:1108<==>camxID:608<==>index:8
enqueue 109 1109
= 2 dequeue:fwkID:59<==>chi:1059<==>camx:559----camid:3 imageName: new frontId:10
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[559]_camId[3].
= 2 add request fwkID:109<==>chiID:1109<==>index:9
insert 1109 609 1
= 2 iFromCamx:fwkID:109<==>chiId:1109<==>camxID:609<==>index:9
enqueue 110 1110
= 2 dequeue:fwkID:60<==>chi:1060<==>camx:560----camid:0 imageName: new frontId:11
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[560]_camId[0].
= 2 add request fwkID:110<==>chiID:1110<==>index:10
insert 1110 610 2
= 2 iFromCamx:fwkID:110<==>chiId:1110<==>camxID:610<==>index:10
enqueue 111 1111
= 2 dequeue:fwkID:61<==>chi:1061<==>camx:561----camid:1 imageName: new frontId:12
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[561]_camId[1].
= 2 add request fwkID:111<==>chiID:1111<==>index:11
insert 1111 611 3
= 2 iFromCamx:fwkID:111<==>chiId:1111<==>camxID:611<==>index:11
enqueue 112 1112
= 2 dequeue:fwkID:62<==>chi:1062<==>camx:562----camid:2 imageName: new frontId:13
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[562]_camId[2].
= 2 add request fwkID:112<==>chiID:1112<==>index:12
insert 1112 612 0
= 2 iFromCamx:fwkID:112<==>chiId:1112<==>camxID:612<==>index:12
enqueue 113 1113
= 2 dequeue:fwkID:63<==>chi:1063<==>camx:563----camid:3 imageName: new frontId:14
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[563]_camId[3].
= 2 add request fwkID:113<==>chiID:1113<==>index:13
insert 1113 613 1
= 2 iFromCamx:fwkID:113<==>chiId:1113<==>camxID:613<==>index:13
enqueue 114 1114
= 2 dequeue:fwkID:64<==>chi:1064<==>camx:564----camid:0 imageName: new frontId:15
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[564]_camId[0].
= 2 add request fwkID:114<==>chiID:1114<==>index:14
insert 1114 614 2
= 2 iFromCamx:fwkID:114<==>chiId:1114<==>camxID:614<==>index:14
enqueue 115 1115
= 2 dequeue:fwkID:65<==>chi:1065<==>camx:565----camid:1 imageName: new frontId:16
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[565]_camId[1].
= 2 add request fwkID:115<==>chiID:1115<==>index:15
insert 1115 615 3
= 2 iFromCamx:fwkID:115<==>chiId:1115<==>camxID:615<==>index:15
enqueue 116 1116
= 2 dequeue:fwkID:66<==>chi:1066<==>camx:566----camid:2 imageName: new frontId:17
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[566]_camId[2].
= 2 add request fwkID:116<==>chiID:1116<==>index:16
insert 1116 616 0
= 2 iFromCamx:fwkID:116<==>chiId:1116<==>camxID:616<==>index:16
enqueue 117 1117
= 2 dequeue:fwkID:67<==>chi:1067<==>camx:567----camid:3 imageName: new frontId:18
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[567]_camId[3].
= 2 add request fwkID:117<==>chiID:1117<==>index:17
insert 1117 617 1
= 2 iFromCamx:fwkID:117<==>chiId:1117<==>camxID:617<==>index:17
enqueue 118 1118
= 2 dequeue:fwkID:68<==>chi:1068<==>camx:568----camid:0 imageName: new frontId:19
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[568]_camId[0].
= 2 add request fwkID:118<==>chiID:1118<==>index:18
insert 1118 618 2
= 2 iFromCamx:fwkID:118<==>chiId:1118<==>camxID:618<==>index:18
enqueue 119 1119
= 2 dequeue:fwkID:69<==>chi:1069<==>camx:569----camid:1 imageName: new frontId:20
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[569]_camId[1].
= 2 add request fwkID:119<==>chiID:1119<==>index:19
insert 1119 619 3
= 2 iFromCamx:fwkID:119<==>chiId:1119<==>camxID:619<==>index:19
enqueue 120 1120
= 2 dequeue:fwkID:70<==>chi:1070<==>camx:570----camid:2 imageName: new frontId:21
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[570]_camId[2].
= 2 add request fwkID:120<==>chiID:1120<==>index:20
insert 1120 620 0
= 2 iFromCamx:fwkID:120<==>chiId:1120<==>camxID:620<==>index:20
enqueue 121 1121
= 2 dequeue:fwkID:71<==>chi:1071<==>camx:571----camid:3 imageName: new frontId:22
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[571]_camId[3].
= 2 add request fwkID:121<==>chiID:1121<==>index:21
insert 1121 621 1
= 2 iFromCamx:fwkID:121<==>chiId:1121<==>camxID:621<==>index:21
enqueue 122 1122
= 2 dequeue:fwkID:72<==>chi:1072<==>camx:572----camid:0 imageName: new frontId:23
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[572]_camId[0].
= 2 add request fwkID:122<==>chiID:1122<==>index:22
insert 1122 622 2
= 2 iFromCamx:fwkID:122<==>chiId:1122<==>camxID:622<==>index:22
enqueue 123 1123
= 2 dequeue:fwkID:73<==>chi:1073<==>camx:573----camid:1 imageName: new frontId:24
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[573]_camId[1].
= 2 add request fwkID:123<==>chiID:1123<==>index:23
insert 1123 623 3
= 2 iFromCamx:fwkID:123<==>chiId:1123<==>camxID:623<==>index:23
enqueue 124 1124
= 2 dequeue:fwkID:74<==>chi:1074<==>camx:574----camid:2 imageName: new frontId:25
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[574]_camId[2].
= 2 add request fwkID:124<==>chiID:1124<==>index:24
insert 1124 624 0
= 2 iFromCamx:fwkID:124<==>chiId:1124<==>camxID:624<==>index:24
enqueue 125 1125
= 2 dequeue:fwkID:75<==>chi:1075<==>camx:575----camid:3 imageName: new frontId:26
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[575]_camId[3].
= 2 add request fwkID:125<==>chiID:1125<==>index:25
insert 1125 625 1
= 2 iFromCamx:fwkID:125<==>chiId:1125<==>camxID:625<==>index:25
enqueue 126 1126
= 2 dequeue:fwkID:76<==>chi:1076<==>camx:576----camid:0 imageName: new frontId:27
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[576]_camId[0].
= 2 add request fwkID:126<==>chiID:1126<==>index:26
insert 1126 626 2
= 2 iFromCamx:fwkID:126<==>chiId:1126<==>camxID:626<==>index:26
enqueue 127 1127
= 2 dequeue:fwkID:77<==>chi:1077<==>camx:577----camid:1 imageName: new frontId:28
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[577]_camId[1].
= 2 add request fwkID:127<==>chiID:1127<==>index:27
insert 1127 627 3
= 2 iFromCamx:fwkID:127<==>chiId:1127<==>camxID:627<==>index:27
enqueue 128 1128
= 2 dequeue:fwkID:78<==>chi:1078<==>camx:578----camid:2 imageName: new frontId:29
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[578]_camId[2].
= 2 add request fwkID:128<==>chiID:1128<==>index:28
insert 1128 628 0
= 2 iFromCamx:fwkID:128<==>chiId:1128<==>camxID:628<==>index:28
enqueue 129 1129
= 2 dequeue:fwkID:79<==>chi:1079<==>camx:579----camid:3 imageName: new frontId:30
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[579]_camId[3].
= 2 add request fwkID:129<==>chiID:1129<==>index:29
insert 1129 629 1
= 2 iFromCamx:fwkID:129<==>chiId:1129<==>camxID:629<==>index:29
enqueue 130 1130
= 2 dequeue:fwkID:80<==>chi:1080<==>camx:580----camid:0 imageName: new frontId:31
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[580]_camId[0].
= 2 add request fwkID:130<==>chiID:1130<==>index:30
insert 1130 630 2
= 2 iFromCamx:fwkID:130<==>chiId:1130<==>camxID:630<==>index:30
insert 1081 7 5
= 2 iFromCamx:fwkID:81<==>chiId:1081<==>camxID:7<==>index:31
insert 1080 7 5
insert 1099 7 5
= 2 iFromCamx:fwkID:99<==>chiId:1099<==>camxID:7<==>index:49
slots
= slot 0: fwk 100 chi 1100 image '' index 0 camx 0:600
= slot 1: fwk 101 chi 1101 image '' index 0 camx 1:601
= slot 2: fwk 102 chi 1102 image '' index 0 camx 2:602
= slot 3: fwk 103 chi 1103 image '' index 0 camx 3:603
= slot 4: fwk 104 chi 1104 image '' index 0 camx 0:604
= slot 5: fwk 105 chi 1105 image '' index 0 camx 1:605
= slot 6: fwk 106 chi 1106 image '' index 0 camx 2:606
= slot 7: fwk 107 chi 1107 image '' index 0 camx 3:607
= slot 8: fwk 108 chi 1108 image '' index 0 camx 0:608
= slot 9: fwk 109 chi 1109 image '' index 0 camx 1:609
= slot 10: fwk 110 chi 1110 image '' index 0 camx 2:610
= slot 11: fwk 111 chi 1111 image '' index 0 camx 3:611
= slot 12: fwk 112 chi 1112 image '' index 0 camx 0:612
= slot 13: fwk 113 chi 1113 image '' index 0 camx 1:613
= slot 14: fwk 114 chi 1114 image '' index 0 camx 2:614
= slot 15: fwk 115 chi 1115 image '' index 0 camx 3:615
= slot 16: fwk 116 chi 1116 image '' index 0 camx 0:616
= slot 17: fwk 117 chi 1117 image '' index 0 camx 1:617
= slot 18: fwk 118 chi 1118 image '' index 0 camx 2:618
= slot 19: fwk 119 chi 1119 image '' index 0 camx 3:619
= slot 20: fwk 120 chi 1120 image '' index 0 camx 0:620
= slot 21: fwk 121 chi 1121 image '' index 0 camx 1:621
= slot 22: fwk 122 chi 1122 image '' index 0 camx 2:622
= slot 23: fwk 123 chi 1123 image '' index 0 camx 3:623
= slot 24: fwk 124 chi 1124 image '' index 0 camx 0:624
= slot 25: fwk 125 chi 1125 image '' index 0 camx 1:625
= slot 26: fwk 126 chi 1126 image '' index 0 camx 2:626
= slot 27: fwk 127 chi 1127 image '' index 0 camx 3:627
= slot 28: fwk 128 chi 1128 image '' index 0 camx 0:628
= slot 29: fwk 129 chi 1129 image '' index 0 camx 1:629
= slot 30: fwk 130 chi 1130 image '' index 0 camx 2:630
= slot 31: fwk 81 chi 1081 image '' index 0 camx 1:581 5:7
= slot 32: fwk 82 chi 1082 image '' index 0 camx 2:582
= slot 33: fwk 83 chi 1083 image '' index 0 camx 3:583
= slot 34: fwk 84 chi 1084 image '' index 0 camx 0:584
= slot 35: fwk 85 chi 1085 image '' index 0 camx 1:585
= slot 36: fwk 86 chi 1086 image '' index 0 camx 2:586
= slot 37: fwk 87 chi 1087 image '' index 0 camx 3:587
= slot 38: fwk 88 chi 1088 image '' index 0 camx 0:588
= slot 39: fwk 89 chi 1089 image '' index 0 camx 1:589
= slot 40: fwk 90 chi 1090 image '' index 0 camx 2:590
= slot 41: fwk 91 chi 1091 image '' index 0 camx 3:591
= slot 42: fwk 92 chi 1092 image '' index 0 camx 0:592
= slot 43: fwk 93 chi 1093 image '' index 0 camx 1:593
= slot 44: fwk 94 chi 1094 image '' index 0 camx 2:594
= slot 45: fwk 95 chi 1095 image '' index 0 camx 3:595
= slot 46: fwk 96 chi 1096 image '' index 0 camx 0:596
= slot 47: fwk 97 chi 1097 image '' index 0 camx 1:597
= slot 48: fwk 98 chi 1098 image '' index 0 camx 2:598
= slot 49: fwk 99 chi 1099 image '' index 0 camx 3:599 5:7
files
= tmp_asd/
