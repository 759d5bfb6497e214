(enqueue 1 11)
(enqueue 2 11)
(enqueue 3 11)
insert 99 7 0
insert 11 7 5
= 2 iFromCamx:fwkID:3<==>chiId:11<==>camxID:7<==>index:3
insert 11 4294967304 5
= 2 iFromCamx:fwkID:3<==>chiId:11<==>camxID:8<==>index:3
insert 11 9 0
= 2 iFromCamx:fwkID:3<==>chiId:11<==>camxID:9<==>index:3
insert 0 7 1
= 2 iFromCamx:fwkID:0<==>chiId:0<==>camxID:7<==>index:0
slots
= slot 0: fwk 0 chi 0 image '' index 0 camx 1:7
= slot 3: fwk 3 chi 11 image '' index 0 camx 0:9 5:4294967304
(dequeueAll)
(enqueue 4 11)
insert 11 10 2
= 2 iFromCamx:fwkID:4<==>chiId:11<==>camxID:10<==>index:4
files
