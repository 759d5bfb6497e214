(enqueue 1 11)
(enqueue 2 12)
(enqueue 3 0)
enqueue 4 4
repeat 0 2
= 2 dequeueAll:i ={n} ,front ={n+1}, rear =3, count = 3
end
= 2 add request fwkID:4<==>chiID:4<==>index:4
repeat 5 52
enqueue {n} {n}
= 2 Request Map Not FULL for fwkID:{n-1}
= 2 add request fwkID:{n}<==>chiID:{n}<==>index:{n%50}
end
dequeueAll
= returns -1
repeat 0 48
= 2 dequeueAll:i ={n} ,front ={n+4%50}, rear =2, count = 49
end
dequeueAll
= returns -1
repeat 0 49
= 2 Request Map Empty
= 2 dequeueAll:i ={n} ,front =2, rear =2, count = 50
end
insert 52 1 0
= 2 iFromCamx:fwkID:52<==>chiId:52<==>camxID:1<==>index:2
slots
= slot 2: fwk 52 chi 52 image '' index 0 camx 0:1
files
