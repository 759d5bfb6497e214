(enqueue 1 11)
(enqueue 2 12)
(enqueue 3 0)
enqueue 4 4
= 2 dequeueAll:i =0 ,front =1, rear =3, count = 3
= 2 dequeueAll:i =1 ,front =2, rear =3, count = 3
= 2 dequeueAll:i =2 ,front =3, rear =3, count = 3
= 2 add request fwkID:4<==>chiID:4<==>index:4
enqueue 5 5
= 2 Request Map Not FULL for fwkID:4
= 2 add request fwkID:5<==>chiID:5<==>index:5
enqueue 6 6
= 2 Request Map Not FULL for fwkID:5
= 2 add request fwkID:6<==>chiID:6<==>index:6
enqueue 7 7
= 2 Request Map Not FULL for fwkID:6
= 2 add request fwkID:7<==>chiID:7<==>index:7
enqueue 8 8
= 2 Request Map Not FULL for fwkID:7
= 2 add request fwkID:8<==>chiID:8<==>index:8
enqueue 9 9
= 2 Request Map Not FULL for fwkID:8
= 2 add request fwkID:9<==>chiID:9<==>index:9
enqueue 10 10
= 2 Request Map Not FULL for fwkID:9
= 2 add request fwkID:10<==>chiID:10<==>index:10
enqueue 11 11
= 2 Request Map Not FULL for fwkID:10
= 2 add request fwkID:11<==>chiID:11<==>index:11
enqueue 12 12
= 2 Request Map Not FULL for fwkID:11
= 2 add request fwkID:12<==>chiID:12<==>index:12
enqueue 13 13
= 2 Request Map Not FULL for fwkID:12
= 2 add request fwkID:13<==>chiID:13<==>index:13
enqueue 14 14
= 2 Request Map Not FULL for fwkID:13
= 2 add request fwkID:14<==>chiID:14<==>index:14
enqueue 15 15
= 2 Request Map Not FULL for fwkID:14
= 2 add request fwkID:15<==>chiID:15<==>index:15
enqueue 16 16
= 2 Request Map Not FULL for fwkID:15
= 2 add request fwkID:16<==>chiID:16<==>index:16
enqueue 17 17
= 2 Request Map Not FULL for fwkID:16
= 2 add request fwkID:17<==>chiID:17<==>index:17
enqueue 18 18
= 2 Request Map Not FULL for fwkID:17
= 2 add request fwkID:18<==>chiID:18<==>index:18
enqueue 19 19
= 2 Request Map Not FULL for fwkID:18
= 2 add request fwkID:19<==>chiID:19<==>index:19
enqueue 20 20
= 2 Request Map Not FULL for fwkID:19
= 2 add request fwkID:20<==>chiID:20<==>index:20
enqueue 21 21
= 2 Request Map Not FULL for fwkID:20
= 2 add request fwkID:21<==>chiID:21<==>index:21
enqueue 22 22
= 2 Request Map Not FULL for fwkID:21
= 2 add request fwkID:22<==>chiID:22<==>index:22
enqueue 23 23
= 2 Request Map Not FULL for fwkID:22
= 2 add request fwkID:23<==>chiID:23<==>index:23
enqueue 24 24
= 2 Request Map Not FULL for fwkID:23
= 2 add request fwkID:24<==>chiID:24<==>index:24
enqueue 25 25
= 2 Request Map Not FULL for fwkID:24
= 2 add request fwkID:25<==>chiID:25<==>index:25
enqueue 26 26
= 2 Request Map Not FULL for fwkID:25
= 2 add request fwkID:26<==>chiID:26<==>index:26
enqueue 27 27
= 2 Request Map Not FULL for fwkID:26
= 2 add request fwkID:27<==>chiID:27<==>index:27
enqueue 28 28
= 2 Request Map Not FULL for fwkID:27
= 2 add request fwkID:28<==>chiID:28<==>index:28
enqueue 29 29
= 2 Request Map Not FULL for fwkID:28
= 2 add request fwkID:29<==>chiID:29<==>index:29
enqueue 30 30
= 2 Request Map Not FULL for fwkID:29
= 2 add request fwkID:30<==>chiID:30<==>index:30
enqueue 31 31
= 2 Request Map Not FULL for fwkID:30
= 2 add request fwkID:31<==>chiID:31<==>index:31
enqueue 32 32
= 2 Request Map Not FULL for fwkID:31
= 2 add request fwkID:32<==>chiID:32<==>index:32
enqueue 33 33
= 2 Request Map Not FULL for fwkID:32
= 2 add request fwkID:33<==>chiID:33<==>index:33
enqueue 34 34
= 2 Request Map Not FULL for fwkID:33
= 2 add request fwkID:34<==>chiID:34<==>index:34
enqueue 35 35
= 2 Request Map Not FULL for fwkID:34
= 2 add request fwkID:35<==>chiID:35<==>index:35
enqueue 36 36
= 2 Request Map Not FULL for fwkID:35
= 2 add request fwkID:36<==>chiID:36<==>index:36
enqueue 37 37
= 2 Request Map Not FULL for fwkID:36
= 2 add request fwkID:37<==>chiID:37<==>index:37
enqueue 38 38
= 2 Request Map Not FULL for fwkID:37
= 2 add request fwkID:38<==>chiID:38<==>index:38
enqueue 39 39
= 2 Request Map Not FULL for fwkID:38
= 2 add request fwkID:39<==>chiID:39<==>index:39
enqueue 40 40
= 2 Request Map Not FULL for fwkID:39
= 2 add request fwkID:40<==>chiID:40<==>index:40
enqueue 41 41
= 2 Request Map Not FULL for fwkID:40
= 2 add request fwkID:41<==>chiID:41<==>index:41
enqueue 42 42
= 2 Request Map Not FULL for fwkID:41
= 2 add request fwkID:42<==>chiID:42<==>index:42
enqueue 43 43
= 2 Request Map Not FULL for fwkID:42
= 2 add request fwkID:43<==>chiID:43<==>index:43
enqueue 44 44
= 2 Request Map Not FULL for fwkID:43
= 2 add request fwkID:44<==>chiID:44<==>index:44
enqueue 45 45
= 2 Request Map Not FULL for fwkID:44
= 2 add request fwkID:45<==>chiID:45<==>index:45
enqueue 46 46
= 2 Request Map Not FULL for fwkID:45
= 2 add request fwkID:46<==>chiID:46<==>index:46
enqueue 47 47
= 2 Request Map Not FULL for fwkID:46
= 2 add request fwkID:47<==>chiID:47<==>index:47
enqueue 48 48
= 2 Request Map Not FULL for fwkID:47
= 2 add request fwkID:48<==>chiID:48<==>index:48
enqueue 49 49
= 2 Request Map Not FULL for fwkID:48
= 2 add request fwkID:49<==>chiID:49<==>index:49
enqueue 50 50
= 2 Request Map Not FULL for fwkID:49
= 2 add request fwkID:50<==>chiID:50<==>index:0
enqueue 51 51
= 2 Request Map Not FULL for fwkID:50
= 2 add request fwkID:51<==>chiID:51<==>index:1
enqueue 52 52
= 2 Request Map Not FULL for fwkID:51
= 2 add request fwkID:52<==>chiID:52<==>index:2
dequeueAll
= returns -1
= 2 dequeueAll:i =0 ,front =4, rear =2, count = 49
= 2 dequeueAll:i =1 ,front =5, rear =2, count = 49
= 2 dequeueAll:i =2 ,front =6, rear =2, count = 49
= 2 dequeueAll:i =3 ,front =7, rear =2, count = 49
= 2 dequeueAll:i =4 ,front =8, rear =2, count = 49
= 2 dequeueAll:i =5 ,front =9, rear =2, count = 49
= 2 dequeueAll:i =6 ,front =10, rear =2, count = 49
= 2 dequeueAll:i =7 ,front =11, rear =2, count = 49
= 2 dequeueAll:i =8 ,front =12, rear =2, count = 49
= 2 dequeueAll:i =9 ,front =13, rear =2, count = 49
= 2 dequeueAll:i =10 ,front =14, rear =2, count = 49
= 2 dequeueAll:i =11 ,front =15, rear =2, count = 49
= 2 dequeueAll:i =12 ,front =16, rear =2, count = 49
= 2 dequeueAll:i =13 ,front =17, rear =2, count = 49
= 2 dequeueAll:i =14 ,front =18, rear =2, count = 49
= 2 dequeueAll:i =15 ,front =19, rear =2, count = 49
= 2 dequeueAll:i =16 ,front =20, rear =2, count = 49
= 2 dequeueAll:i =17 ,front =21, rear =2, count = 49
= 2 dequeueAll:i =18 ,front =22, rear =2, count = 49
= 2 dequeueAll:i =19 ,front =23, rear =2, count = 49
= 2 dequeueAll:i =20 ,front =24, rear =2, count = 49
= 2 dequeueAll:i =21 ,front =25, rear =2, count = 49
= 2 dequeueAll:i =22 ,front =26, rear =2, count = 49
= 2 dequeueAll:i =23 ,front =27, rear =2, count = 49
= 2 dequeueAll:i =24 ,front =28, rear =2, count = 49
= 2 dequeueAll:i =25 ,front =29, rear =2, count = 49
= 2 dequeueAll:i =26 ,front =30, rear =2, count = 49
= 2 dequeueAll:i =27 ,front =31, rear =2, count = 49
= 2 dequeueAll:i =28 ,front =32, rear =2, count = 49
= 2 dequeueAll:i =29 ,front =33, rear =2, count = 49
= 2 dequeueAll:i =30 ,front =34, rear =2, count = 49
= 2 dequeueAll:i =31 ,front =35, rear =2, count = 49
= 2 dequeueAll:i =32 ,front =36, rear =2, count = 49
= 2 dequeueAll:i =33 ,front =37, rear =2, count = 49
= 2 dequeueAll:i =34 ,front =38, rear =2, count = 49
= 2 dequeueAll:i =35 ,front =39, rear =2, count = 49
= 2 dequeueAll:i =36 ,front =40, rear =2, count = 49
= 2 dequeueAll:i =37 ,front =41, rear =2, count = 49
= 2 dequeueAll:i =38 ,front =42, rear =2, count = 49
= 2 dequeueAll:i =39 ,front =43, rear =2, count = 49
= 2 dequeueAll:i =40 ,front =44, rear =2, count = 49
= 2 dequeueAll:i =41 ,front =45, rear =2, count = 49
= 2 dequeueAll:i =42 ,front =46, rear =2, count = 49
= 2 dequeueAll:i =43 ,front =47, rear =2, count = 49
= 2 dequeueAll:i =44 ,front =48, rear =2, count = 49
= 2 dequeueAll:i =45 ,front =49, rear =2, count = 49
= 2 dequeueAll:i =46 ,front =0, rear =2, count = 49
= 2 dequeueAll:i =47 ,front =1, rear =2, count = 49
= 2 dequeueAll:i =48 ,front =2, rear =2, count = 49
dequeueAll
= returns -1
= 2 Request Map Empty
= 2 dequeueAll:i =0 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =1 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =2 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =3 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =4 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =5 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =6 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =7 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =8 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =9 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =10 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =11 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =12 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =13 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =14 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =15 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =16 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =17 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =18 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =19 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =20 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =21 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =22 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =23 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =24 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =25 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =26 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =27 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =28 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =29 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =30 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =31 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =32 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =33 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =34 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =35 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =36 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =37 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =38 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =39 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =40 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =41 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =42 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =43 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =44 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =45 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =46 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =47 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =48 ,front =2, rear =2, count = 50
= 2 Request Map Empty
= 2 dequeueAll:i =49 ,front =2, rear =2, count = 50
insert 52 1 0
= 2 iFromCamx:fwkID:52<==>chiId:52<==>camxID:1<==>index:2
slots
= slot 2: fwk 52 chi 52 image '' index 0 camx 0:1
files
